#include "mtp/MTPFilesFixture.h"

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using enum MTPOperationCode;

constexpr qint64 size = (qint64{4} << 30) + 5'000;
constexpr qint64 marked = 4; ///< the last bytes

/// Zeros beyond 4 GiB with a mark at the end, in both directions.
class MTPLargeFileTest : public MTPFilesFixture {};

TEST_F(MTPLargeFileTest, moreThanFourGigabytesComeWhole) {
    QFile film(phone().disk.writeSparse(u"0/film"_s, size));
    ASSERT_TRUE(film.open(QIODevice::ReadWrite) && film.seek(size - marked));
    ASSERT_EQ(film.write("mark"), marked);
    film.close();
    const std::pair<const char*, std::function<void()>> rows[] = {
        {"in pieces", [] {}},
        {"in one, of a length that 32 bits cannot tell",
         [&] {
             for (const auto part : {androidGetPartialObject64, getPartialObject})
                 phone().unlearn(part);
         }},
        {"in one, of a length cut to 32 bits",
         [&] {
             phone().rewriteData(getObject, [](Bytes& header) {
                 for (const std::size_t high : {2U, 3U})
                     header[high] = std::byte{};
                 header[0] = std::byte{(size + 12) & 0xFF};
                 header[1] = std::byte{(size + 12) >> 8 & 0xFF};
             });
         }},
    };
    for (const auto& [name, change] : rows) {
        SCOPED_TRACE(name);
        change();
        replug();
        (void)list("/"); // what a phone can is known from when its session began
        qint64 arrived = 0;
        QByteArray end;
        const FileItem item = this->item("/film");
        EXPECT_EQ(item.size, size);
        const auto sink = [&](ByteView bytes) {
            arrived += static_cast<qint64>(bytes.size());
            end = (end + QByteArray(reinterpret_cast<const char*>(bytes.data()),
                                    static_cast<qsizetype>(bytes.size())))
                      .right(marked);
        };
        EXPECT_EQ(files_.read(item, {}, sink, {}), size);
        EXPECT_EQ(arrived, size);
        EXPECT_EQ(end, "mark");
    }
    EXPECT_GT(phone().requests(androidGetPartialObject64), 100U);
    EXPECT_EQ(phone().requests(getObject), 2U);
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

} // namespace
} // namespace tessary
