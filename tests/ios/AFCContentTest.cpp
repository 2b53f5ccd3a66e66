#include "ios/files/AFCFileSystem.h"

#include "base/local/PartFile.h"
#include "support/IPhoneFiles.h"
#include "support/ManyBytes.h"
#include "support/QtPrinters.h"

#include <QFile>
#include <QTimeZone>

#include <gmock/gmock.h>

#include <thread>

namespace tessary {
namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using testing::StartsWith;

constexpr qint64 mebibyte = qint64{1} << 20;
const QDateTime someDate(QDate(2021, 3, 4), QTime(5, 6, 7), QTimeZone::utc());

class AFCContentTest : public testing::Test {
protected:
    void refuse(const char* request, std::uint64_t status) {
        iphone_.faults([&](VirtualIPhoneFaults& faults) {
            faults.statuses[QString::fromLatin1(request)] = {status, false};
        });
    }
    [[nodiscard]] std::size_t requests() {
        std::size_t count = 0;
        for (const char* request :
             {"readDir", "getFileInfo", "fileOpen", "fileRead", "fileWrite", "fileClose",
              "fileSeek", "setFileModTime", "removePath", "renamePath"})
            count += iphone_.count(("afc." + std::string(request)).c_str());
        return count;
    }

    [[nodiscard]] std::size_t timesOpened(const QString& name) {
        const auto requests = iphone_.phone.log().requests();
        return static_cast<std::size_t>(
            std::count_if(requests.begin(), requests.end(), [&](const auto& one) {
                return one.request == u"afc.fileOpen"_s && one.detail.endsWith(u'/' + name);
            }));
    }

    IPhoneFiles iphone_;
    AFCFileSystem& files_ = iphone_.files;
};

TEST_F(AFCContentTest, aSmallFileTakesThreeRequestsToReadAndSixToWrite) {
    iphone_.write(u"a"_s, manyBytes(1000));
    const FileItem item = iphone_.item(u"/a"_s);
    std::size_t before = requests();
    EXPECT_EQ(files_.read(item, {}, [](ByteView) {}, {}), 1000);
    EXPECT_EQ(requests() - before, 3U);
    before = requests();
    iphone_.put({u"/"_s, u"b"_s, 1000, someDate}, manyBytes(1000));
    EXPECT_EQ(requests() - before, 6U); // look, open, write, close, date, look
    before = requests();
    const FileItem part =
        iphone_.put({u"/"_s, PartFile::newName(), 1000, someDate}, manyBytes(1000));
    const FileItem whole = files_.rename(part, u"b"_s, TakenName::replaced, {});
    EXPECT_EQ(requests() - before, 6U); // open, write, close, date, look, rename
    EXPECT_EQ(whole, iphone_.item(u"/b"_s));
    // Only right afterwards is it known to be the same still.
    before = requests();
    files_.rename(whole, u"c"_s, TakenName::replaced, {});
    EXPECT_EQ(requests() - before, 2U);
}

TEST_F(AFCContentTest, aFileThatGrewOrShrankIsReadAsItIs) {
    for (const qint64 size : {qint64{3}, qint64{7}, 2 * mebibyte}) {
        iphone_.write(u"a"_s, "12345");
        const FileItem seen = iphone_.item(u"/a"_s);
        iphone_.write(u"a"_s, manyBytes(size));
        qint64 count = 0;
        const ByteSink sink = [&](ByteView bytes) { count += static_cast<qint64>(bytes.size()); };
        EXPECT_EQ(files_.read(seen, {}, sink, {}), size);
        EXPECT_EQ(count, size);
    }
}

TEST_F(AFCContentTest, aFileThatIsNotClosedLeavesNothingOnThePhone) {
    refuse("afc.fileClose", 20);
    EXPECT_EQ(errorOf([&] {
                  iphone_.put({u"/"_s, u"up"_s, 3 * mebibyte, {}}, manyBytes(3 * mebibyte));
              }),
              "unreadable (/up), caused by ioError (20)");
    EXPECT_EQ(iphone_.names(u"/"_s), QStringList());
}

TEST_F(AFCContentTest, aCopyThatThePhoneKeptOnlyInPartIsAnError) {
    iphone_.faults([](VirtualIPhoneFaults& faults) {
        faults.rewriteFileInfo = [](const QString&, const QStringList&) {
            return QStringList({u"st_ifmt"_s, u"S_IFREG"_s, u"st_size"_s, u"4"_s});
        };
    });
    EXPECT_EQ(errorOf([&] {
                  iphone_.put({u"/"_s, u"up"_s, 5, {}}, "12345");
              }),
              "wrongSize (/up, 4, 5)");
    EXPECT_EQ(iphone_.names(u"/"_s), QStringList());
}

TEST_F(AFCContentTest, othersUseThePhoneWhileALargeFileCrosses) {
    const QByteArray content = manyBytes(3 * mebibyte);
    const auto inTurn = [&](const std::function<void()>& work) {
        const PhoneQueue::Turn turn = iphone_.queue->take({});
        work();
    };
    const char* none = "nothing was thrown";
    const struct {
        const char* name;
        std::function<void(const QString& file)> meanwhile;
        std::string error;
    } rows[] = {
        {"a listing", [&](const QString&) { EXPECT_EQ(iphone_.names(u"/"_s).size(), 2); }, none},
        {"a file is read", [&](const QString&) { (void)iphone_.get(u"/small"_s); }, none},
        {"a file is written",
         [&](const QString&) {
             iphone_.put({u"/"_s, u"new"_s, 3, {}}, "new");
         },
         none},
        {"what is written fails",
         [&](const QString&) {
             const ByteSource broken = [](std::span<std::byte>) -> std::size_t {
                 throw Error(PhoneError::refused);
             };
             EXPECT_EQ(errorOf([&] {
                           files_.write({u"/"_s, u"n"_s, 1, {}}, broken, {}, {});
                       }),
                       "refused");
         },
         none},
        {"the link is lost",
         [&](const QString&) {
             iphone_.faults([](VirtualIPhoneFaults& faults) {
                 faults.requestFault = {u"afc.readDir"_s, 1, false, VirtualCut::close};
             });
             (void)iphone_.names(u"/"_s);
         },
         none},
        {"it is cut short",
         [&](const QString& file) { inTurn([&] { iphone_.write(file, "short"); }); },
         "changed (/%1)"},
        {"it is removed",
         [&](const QString& file) {
             inTurn([&] { QFile::remove(iphone_.disk.path(iphone_.inDocuments(file))); });
         },
         "notFound (/%1)"},
    };
    int files = 0;
    for (const auto& row : rows)
        for (const bool isUpload : {false, true}) {
            // What the phone still does about an earlier one is not done to this one.
            const QString large = u"large %1"_s.arg(++files);
            SCOPED_TRACE(std::string(row.name) + (isUpload ? " up" : " down"));
            for (const QString& left : iphone_.disk.names(iphone_.inDocuments({})))
                QFile::remove(iphone_.disk.path(iphone_.inDocuments(left)));
            iphone_.faults([](VirtualIPhoneFaults& faults) { faults = {}; });
            iphone_.write(u"small"_s, "small");
            if (!isUpload)
                iphone_.write(large, content);
            const FileItem seen = isUpload ? FileItem() : iphone_.item(QLatin1Char('/') + large);
            iphone_.faults([](VirtualIPhoneFaults& faults) { faults.megabytesPerSecond = 10; });
            const std::size_t opened = timesOpened(large);
            std::jthread other;
            const auto meet = [&](qint64 done) {
                if (done < mebibyte || other.joinable())
                    return;
                other = std::jthread([&] { row.meanwhile(large); });
                while (iphone_.queue->waitingCount() == 0)
                    std::this_thread::yield();
            };
            const Call call{{}, Urgency::copy};
            QByteArray arrived;
            const std::string error = errorOf([&] {
                if (isUpload)
                    files_.write({u"/"_s, large, content.size(), {}}, sourceOf(content, meet), {},
                                 call);
                else
                    files_.read(
                        seen, {},
                        [&, into = sinkInto(arrived)](ByteView bytes) {
                            into(bytes);
                            meet(arrived.size());
                        },
                        call);
            });
            other.join();
            EXPECT_EQ(error,
                      QString::fromStdString(row.error).replace(u"%1"_s, large).toStdString());
            if (row.error != none)
                continue;
            EXPECT_EQ(timesOpened(large), opened + 2);
            EXPECT_TRUE(iphone_.read(large) == content);
            EXPECT_TRUE(isUpload || arrived == content);
        }
}

TEST(AFCContent, silenceWithoutAnEndIsNoAnswer) {
    IPhoneFiles iphone({}, false, {.afterStop = 100ms, .ofSilence = 4s});
    iphone.faults([](VirtualIPhoneFaults& faults) { faults.hang.insert(u"afc.getFileInfo"_s); });
    EXPECT_EQ(errorOf([&] { (void)iphone.item(u"/a"_s); }), "noAnswer");
    iphone.faults([](VirtualIPhoneFaults& faults) { faults.hang.clear(); });
    iphone.phone.unplug();
    iphone.phone.plugInto(iphone.mux);
    EXPECT_EQ(iphone.names(u"/"_s), QStringList());
}

} // namespace
} // namespace tessary
