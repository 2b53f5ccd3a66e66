#include "mtp/MTPFilesFixture.h"
#include "transfer/copy/FileCopy.h"
#include "transfer/local/LocalFileSystem.h"

#include <iostream>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

constexpr qint64 size = (qint64{4} << 30) + 5'000;
constexpr qint64 marked = 4; ///< the last bytes

/// Zeros beyond 4 GiB with a mark at the end, in both directions.
class MTPLargeFileTest : public MTPFilesFixture {};

TEST_F(MTPLargeFileTest, moreThanFourGigabytesComeWhole) {
    QFile film(phone().disk.writeSparse(u"0/film"_s, size));
    ASSERT_TRUE(film.open(QIODevice::ReadWrite) && film.seek(size - marked));
    ASSERT_EQ(film.write("mark"), marked);
    film.close();
    qint64 arrived = 0;
    QByteArray end;
    const FileItem item = this->item("/film");
    EXPECT_EQ(item.size, size);
    const qint64 count =
        files_.read(item, {},
                    [&](ByteView bytes) {
                        arrived += static_cast<qint64>(bytes.size());
                        end = (end + QByteArray(reinterpret_cast<const char*>(bytes.data()),
                                                static_cast<qsizetype>(bytes.size())))
                                  .right(marked);
                    },
                    {});
    EXPECT_EQ(count, size);
    EXPECT_EQ(arrived, size);
    EXPECT_EQ(end, "mark");
}

TEST_F(MTPLargeFileTest, moreThanFourGigabytesAreSentWhole) {
    qint64 left = size;
    const auto source = [&](std::span<std::byte> room) {
        const qint64 count = std::min(left, static_cast<qint64>(room.size()));
        std::fill_n(room.begin(), count, std::byte{});
        const qint64 inMark = std::clamp<qint64>(count - (left - marked), 0, count);
        std::fill_n(room.begin() + (count - inMark), inMark, std::byte{'m'});
        left -= count;
        return static_cast<std::size_t>(count);
    };
    const FileItem sent = files_.write({u"/"_s, u"film"_s, size, {}}, source, {}, {});
    EXPECT_EQ(sent.size, size);
    QFile film(phone().disk.path(u"0/film"_s));
    ASSERT_TRUE(film.open(QIODevice::ReadOnly));
    EXPECT_EQ(film.size(), size);
    ASSERT_TRUE(film.seek(size - marked - 1));
    EXPECT_EQ(film.readAll(), QByteArray("\0mmmm", 5));
}

/// A cable that comes out at 70 % of 2 GiB, either way, and the copy that follows.
TEST_F(MTPLargeFileTest, littleOfABrokenOffCopyComesAcrossAgain) {
    constexpr qint64 film = qint64{2} << 30;
    constexpr qint64 step = qint64{32} << 20; // from one mark to the next
    const TemporaryFolder disk;
    LocalFileSystem here(disk.path());
    for (const bool isUpload : {true, false}) {
        const QString name = isUpload ? u"up"_s : u"down"_s;
        QFile source(isUpload ? disk.writeSparse(name, film)
                              : phone().disk.writeSparse(u"0/"_s + name, film));
        ASSERT_TRUE(source.open(QIODevice::ReadWrite));
        for (qint64 at = 0; at < film; at += step)
            ASSERT_TRUE(source.seek(at) && source.write(QByteArray::number(at)) > 0);
        source.close();
        PhoneFileSystem& from = isUpload ? static_cast<PhoneFileSystem&>(here) : files_;
        PhoneFileSystem& to = isUpload ? static_cast<PhoneFileSystem&>(files_) : here;
        const auto find = [&] {
            return require(from, isUpload ? disk.path(name) : u'/' + name, {});
        };
        FileCopy copy{from, find(), to, isUpload ? u"/"_s : disk.path(), name};
        qint64 arrived = 0;
        EXPECT_THROW(copyFile(copy,
                              [&](qint64 done) {
                                  arrived = done;
                                  if (done >= film / 10 * 7)
                                      phone().android.unplug();
                              },
                              {}),
                     Error);
        ASSERT_LT(arrived, film);
        ASSERT_NE(phone().android.plugInto(bus_), 0U);
        copy.file = find(); // by another handle
        qint64 first = -1;
        EXPECT_EQ(copyFile(copy, [&](qint64 done) { first = first < 0 ? done : first; }, {}).size,
                  film);
        std::cout << name.toStdString() << ": " << arrived - first << " bytes of " << film
                  << " a second time\n";
        EXPECT_LE(arrived - first, qint64{9} << 20);
        QFile target(isUpload ? phone().disk.path(u"0/"_s + name) : disk.path(name));
        ASSERT_TRUE(target.open(QIODevice::ReadOnly));
        EXPECT_EQ(target.size(), film);
        for (qint64 at = 0; at < film; at += step) {
            const QByteArray mark = QByteArray::number(at);
            EXPECT_TRUE(target.seek(at) && target.read(mark.size()) == mark) << at;
        }
    }
}

} // namespace
} // namespace tessary
