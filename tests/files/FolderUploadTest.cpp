#include "files/UploadFixture.h"
#include "support/OrdinaryUser.h"

#include <sys/stat.h>

#include <map>
#include <thread>

namespace tessary {
namespace {

using namespace std::chrono_literals;

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
    local_.write(QStringLiteral("Trip/a.txt"), newContent);
    local_.write(QStringLiteral("Trip/sub/b.txt"), newContent);
    local_.write(QStringLiteral("Trip/sub/deep/c.txt"), newContent);
    local_.makeFolder(QStringLiteral("Trip/empty"));
    local_.write(QStringLiteral("Trip/clash/inside"), newContent);
    local_.write(QStringLiteral("Trip/") + QString(255, QLatin1Char('n')), "x");
    ASSERT_EQ(mkfifo(qPrintable(local_.path(QStringLiteral("Trip/pipe"))), 0600), 0);
    QFile::link(QStringLiteral("gone"), local_.path(QStringLiteral("Trip/dangling")));
    phone().write(QStringLiteral("Up/Trip/a.txt"), oldContent);
    phone().write(QStringLiteral("Up/Trip/sub/theirs.txt"), oldContent);
    phone().write(QStringLiteral("Up/Trip/clash"), "a file where a folder should be");
    std::vector<TransferProgress> reports;

    const TransferOutcome outcome =
        uploadFolder("Trip", "/Up", [&](const TransferProgress& now) { reports.push_back(now); });

    EXPECT_EQ(phone().content(QStringLiteral("Up/Trip/a.txt")), newContent);
    EXPECT_EQ(phone().content(QStringLiteral("Up/Trip/sub/b.txt")), newContent);
    EXPECT_EQ(phone().content(QStringLiteral("Up/Trip/sub/theirs.txt")), oldContent);
    EXPECT_EQ(phone().content(QStringLiteral("Up/Trip/sub/deep/c.txt")), newContent);
    EXPECT_EQ(phone().content(QStringLiteral("Up/Trip/clash")), "a file where a folder should be");
    EXPECT_EQ(phone().names(QStringLiteral("Up/Trip")),
              (QStringList{QStringLiteral("a.txt"), QStringLiteral("clash"),
                           QStringLiteral("empty"), QStringLiteral("sub")}));
    QStringList skipped = skippedPaths(outcome);
    skipped.sort();
    EXPECT_EQ(skipped, (QStringList{QStringLiteral("clash"), QStringLiteral("clash/inside"),
                                    QStringLiteral("dangling"), QString(255, QLatin1Char('n')),
                                    QStringLiteral("pipe")}));
    const qint64 size = newContent.size();
    EXPECT_EQ(reports.front(), (TransferProgress{5, 0, 4 * size + 1, 0, 0, 0}));
    EXPECT_EQ(reports.back().completedFiles, 3);
    EXPECT_EQ(reports.back().completedBytes, 3 * size);
    EXPECT_EQ(outcome.progress, reports.back());
}

TEST_F(FolderUploadTest, fileThatCannotBeReadHereIsNamedAndTheRestIsSent) {
    local_.write(QStringLiteral("Trip/a"), "a");
    local_.write(QStringLiteral("Trip/secret"), "s");
    local_.write(QStringLiteral("Trip/z"), "z");
    QFile::setPermissions(local_.path(), QFile::Permissions(0x7777));
    QFile::setPermissions(local_.path(QStringLiteral("Trip/secret")), QFile::Permissions());
    QFile::setPermissions(phone().disk.path(), QFile::Permissions(0x7777));
    QFile::setPermissions(phone().disk.path(QStringLiteral("0")), QFile::Permissions(0x7777));
    const OrdinaryUser user;
    const TransferOutcome outcome = uploadFolder("Trip", "/");
    EXPECT_EQ(skippedPaths(outcome), QStringList(QStringLiteral("secret")));
    EXPECT_EQ(phone().names(QStringLiteral("Trip")),
              (QStringList{QStringLiteral("a"), QStringLiteral("z")}));
}

TEST_F(FolderUploadTest, unpluggingEndsTheCopyAndLeavesWholeFilesOnly) {
    for (int n = 0; n < 4; ++n)
        local_.write(QStringLiteral("Trip/%1").arg(n), QByteArray(100'000, 'x'));
    for (const std::uint64_t after : {12, 50'000})
        for (unsigned phase = 1; phase <= 9; phase += 2) {
            phone().fault([&](VirtualFaults& faults) {
                faults.unplug = VirtualByteFault{UsbDirection::out, after, phase};
            });
            const QString failure = failureOf([&] { (void)uploadFolder("Trip", "/"); });
            EXPECT_EQ(failure.isEmpty(), phone().android.isPlugged()) << phase;
            phone().android.unplug(); // waits until the phone has cleaned up
            for (const QString& name : phone().names(QStringLiteral("Trip")))
                EXPECT_EQ(phone().content(QStringLiteral("Trip/") + name).size(), 100'000) << phase;
            phone().fault([](VirtualFaults& faults) { faults.unplug.reset(); });
            QDir(phone().disk.path(QStringLiteral("0/Trip"))).removeRecursively();
            replug();
        }
}

TEST_F(FolderUploadTest, cancelledFolderStopsAndLeavesWholeFilesOnly) {
    for (int n = 0; n < 6; ++n)
        local_.write(QStringLiteral("Trip/%1").arg(n), QByteArray(700'000, 'x'));
    std::stop_source stop;
    EXPECT_THROW((void)uploadFolder(
                     "Trip", "/",
                     [&](const TransferProgress& now) {
                         if (now.completedFiles < 2 || now.currentFileBytes == 0)
                             return;
                         awaitReceiver();
                         stop.request_stop();
                     },
                     stop.get_token()),
                 CancellationError);
    EXPECT_EQ(phone().names(QStringLiteral("Trip")).size(), 2);
}

TEST_F(FolderUploadTest, listingGetsInBetweenTwoFilesOfAnUpload) {
    for (int n = 0; n < 20; ++n)
        local_.write(QStringLiteral("Trip/%1").arg(n), "x");
    phone().write(QStringLiteral("Other/x"), "x");
    std::jthread lister;
    std::atomic<qint64> listed = -1;
    (void)uploadFolder("Trip", "/", [&](const TransferProgress& now) {
        if (now.completedFiles == 1 && !lister.joinable())
            lister = std::jthread([&] { listed = static_cast<qint64>(list("/Other").size()); });
        if (lister.joinable() && listed < 0)
            std::this_thread::sleep_for(10ms);
        if (now.completedFiles == 20) {
            EXPECT_EQ(listed, 1);
        }
    });
    lister.join();
    EXPECT_EQ(phone().requests(MTPOperationCode::openSession), 1U);
}

TEST_F(FolderUploadTest, folderOfFiftyFilesOpensOneSessionAndListsEachFolderOnce) {
    for (int n = 0; n < 50; ++n) {
        local_.write(QStringLiteral("Trip/%1.txt").arg(n), "x");
        phone().write(QStringLiteral("Up/Trip/%1.txt").arg(n * 2), "y");
    }
    phone().write(QStringLiteral("Alarms/x"), "x");
    (void)uploadFolder("Trip", "/Up");
    EXPECT_EQ(phone().requests(MTPOperationCode::openSession), 1U);
    std::map<std::uint32_t, int> listings;
    for (const VirtualRequest& request : phone().android.requestLog())
        if (request.operation == static_cast<std::uint16_t>(MTPOperationCode::getObjectHandles))
            ++listings[request.parameters.at(2)];
    EXPECT_EQ(listings.size(), 3U); // the root, Up, Trip
    for (const auto& [folder, count] : listings)
        EXPECT_EQ(count, 1) << folder;
    EXPECT_EQ(phone().names(QStringLiteral("Up/Trip")).size(), 75);

    phone().android.clearRequestLog();
    EXPECT_TRUE(
        service_->downloadDirectory(item("/Up/Trip"), local_.path(), phone().info).isComplete());
    EXPECT_EQ(phone().requests(MTPOperationCode::openSession), 2U); // item() and the copy
}

TEST_F(SmallCardUploadTest, fullStorageIsSaidEndsTheCopyAndLeavesNothingBehind) {
    local_.write(QStringLiteral("Trip/a"), QByteArray(4000, 'a'));
    local_.write(QStringLiteral("Trip/b"), QByteArray(9000, 'b'));
    local_.write(QStringLiteral("Trip/c"), QByteArray(10, 'c'));
    const auto isFull = [&](auto work) {
        try {
            work();
        } catch (const MTPTransportError& error) {
            return error.response() == static_cast<std::uint16_t>(MTPResponseCode::storeFull);
        }
        return false;
    };
    EXPECT_TRUE(isFull([&] { (void)uploadFolder("Trip", "/"); }));
    EXPECT_EQ(phone().names(QStringLiteral("Trip")), QStringList(QStringLiteral("a")));
    // The same when the phone notices only while the bytes come.
    phone().fault([](VirtualFaults& faults) { faults.storeFullAfter = 1000; });
    for (const bool keepsPartial : {false, true}) {
        phone().android.behaviour().update(
            [&](VirtualBehaviour& behaviour) { behaviour.keepsPartialObjects = keepsPartial; });
        const QString file = local_.write(QStringLiteral("d"), QByteArray(3000, 'd'));
        EXPECT_TRUE(isFull([&] { upload(file, "/"); }));
        EXPECT_EQ(phone().names(), QStringList(QStringLiteral("Trip")));
    }
}

} // namespace
} // namespace tessary
