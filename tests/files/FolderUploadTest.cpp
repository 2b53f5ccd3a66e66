#include "files/UploadFixture.h"
#include "support/OrdinaryUser.h"

#include <sys/stat.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

VirtualAndroidConfig smallCard() {
    VirtualAndroidConfig config;
    config.storages.resize(1);
    config.storages[0].free = 10'000;
    return config;
}

class FolderUploadTest : public UploadFixture {};

class SmallCardUploadTest : public UploadFixture {
protected:
    SmallCardUploadTest() : UploadFixture(smallCard()) {}
};

TEST_F(FolderUploadTest, folderIsMergedIntoOneOfItsNameAndOddFilesAreNamed) {
    local_.write(u"Trip/a.txt"_s, newContent);
    local_.write(u"Trip/sub/b.txt"_s, newContent);
    local_.write(u"Trip/sub/deep/c.txt"_s, newContent);
    local_.makeFolder(u"Trip/empty"_s);
    local_.write(u"Trip/clash/inside"_s, newContent);
    local_.write(u"Trip/"_s + QString(255, u'n'), "x");
    ASSERT_EQ(mkfifo(qPrintable(local_.path(u"Trip/pipe"_s)), 0600), 0);
    QFile::link(u"gone"_s, local_.path(u"Trip/dangling"_s));
    phone().write(u"Up/Trip/a.txt"_s, oldContent);
    phone().write(u"Up/Trip/sub/theirs.txt"_s, oldContent);
    phone().write(u"Up/Trip/clash"_s, "a file where a folder should be");
    std::vector<TransferProgress> reports;

    const TransferOutcome outcome =
        uploadFolder("Trip", "/Up", [&](const TransferProgress& now) { reports.push_back(now); });

    for (const QString& sent : {u"a.txt"_s, u"sub/b.txt"_s, u"sub/deep/c.txt"_s})
        EXPECT_EQ(phone().content(u"Up/Trip/"_s + sent), newContent) << sent.toStdString();
    EXPECT_EQ(phone().content(u"Up/Trip/sub/theirs.txt"_s), oldContent);
    EXPECT_EQ(phone().content(u"Up/Trip/clash"_s), "a file where a folder should be");
    EXPECT_EQ(phone().names(u"Up/Trip"_s),
              (QStringList{u"a.txt"_s, u"clash"_s, u"empty"_s, u"sub"_s}));
    EXPECT_EQ(skippedPaths(outcome), (QStringList{u"clash"_s, u"clash/inside"_s, u"dangling"_s,
                                                  QString(255, u'n'), u"pipe"_s}));
    const qint64 size = newContent.size();
    EXPECT_EQ(reports.front(), (TransferProgress{5, 0, 4 * size + 1, 0, 0, 0}));
    EXPECT_EQ(reports.back().completedFiles, 3);
    EXPECT_EQ(reports.back().completedBytes, 3 * size);
    EXPECT_EQ(outcome.progress, reports.back());
}

TEST_F(FolderUploadTest, fileThatCannotBeReadHereIsNamedAndTheRestIsSent) {
    local_.write(u"Trip/a"_s, "a");
    local_.write(u"Trip/secret"_s, "s");
    local_.write(u"Trip/z"_s, "z");
    QFile::setPermissions(local_.path(), QFile::Permissions(0x7777));
    QFile::setPermissions(local_.path(u"Trip/secret"_s), QFile::Permissions());
    QFile::setPermissions(phone().disk.path(), QFile::Permissions(0x7777));
    QFile::setPermissions(phone().disk.path(u"0"_s), QFile::Permissions(0x7777));
    const OrdinaryUser user;
    const TransferOutcome outcome = uploadFolder("Trip", "/");
    EXPECT_EQ(skippedPaths(outcome), QStringList(u"secret"_s));
    EXPECT_EQ(phone().names(u"Trip"_s), (QStringList{u"a"_s, u"z"_s}));
}

TEST_F(FolderUploadTest, unpluggingEndsTheCopyAndLeavesWholeFilesOnly) {
    for (int n = 0; n < 4; ++n)
        local_.write(u"Trip/%1"_s.arg(n), QByteArray(100'000, 'x'));
    for (const std::uint64_t after : {12, 50'000})
        for (unsigned phase = 1; phase <= 9; phase += 2) {
            phone().unplugAfter(USBDirection::out, after, phase);
            const bool failed = fails([&] { (void)uploadFolder("Trip", "/"); });
            EXPECT_NE(failed, phone().android.isPlugged()) << phase;
            phone().android.unplug(); // waits until the phone has cleaned up
            for (const QString& name : phone().names(u"Trip"_s))
                EXPECT_EQ(phone().content(u"Trip/"_s + name).size(), 100'000) << phase;
            phone().fault([](VirtualFaults& faults) { faults.unplug.reset(); });
            QDir(phone().disk.path(u"0/Trip"_s)).removeRecursively();
            replug();
        }
}

TEST_F(FolderUploadTest, cancelledFolderStopsAndLeavesWholeFilesOnly) {
    for (int n = 0; n < 6; ++n)
        local_.write(u"Trip/%1"_s.arg(n), QByteArray(2'000'000, 'x'));
    std::stop_source stop;
    EXPECT_THROW((void)uploadFolder(
                     "Trip", "/",
                     [&](const TransferProgress& now) {
                         if (now.completedFiles == 2 && now.currentFileBytes >= certainlyReceived)
                             stop.request_stop();
                     },
                     stop.get_token()),
                 CancellationError);
    EXPECT_EQ(phone().names(u"Trip"_s).size(), 2);
}

TEST_F(SmallCardUploadTest, fullStorageIsSaidEndsTheCopyAndLeavesNothingBehind) {
    local_.write(u"Trip/a"_s, QByteArray(4000, 'a'));
    local_.write(u"Trip/b"_s, QByteArray(9000, 'b'));
    local_.write(u"Trip/c"_s, QByteArray(10, 'c'));
    const auto isFull = [&](auto work) {
        try {
            work();
        } catch (const MTPTransportError& error) {
            return error.response() == static_cast<std::uint16_t>(MTPResponseCode::storeFull);
        }
        return false;
    };
    EXPECT_TRUE(isFull([&] { (void)uploadFolder("Trip", "/"); }));
    EXPECT_EQ(phone().names(u"Trip"_s), QStringList(u"a"_s));
    // The same when the phone notices only while the bytes come.
    phone().fault([](VirtualFaults& faults) { faults.storeFullAfter = 1000; });
    for (const bool keepsPartial : {false, true}) {
        phone().behave([&](VirtualBehaviour& b) { b.keepsPartialObjects = keepsPartial; });
        const QString file = local_.write(u"d"_s, QByteArray(3000, 'd'));
        EXPECT_TRUE(isFull([&] { upload(file, "/"); }));
        EXPECT_EQ(phone().names(), QStringList(u"Trip"_s));
    }
}

} // namespace
} // namespace tessary
