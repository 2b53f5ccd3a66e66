#include "core/LittleEndian.h"
#include "mtp/MTPPacketCodec.h"
#include "support/FileServiceFixture.h"

#include <algorithm>
#include <future>

namespace tessary {
namespace {

using namespace std::chrono_literals;

Bytes utf16(const QString& text) {
    const auto bytes =
        std::as_bytes(std::span(text.utf16(), static_cast<std::size_t>(text.size())));
    return {bytes.begin(), bytes.end()};
}

bool contains(const Bytes& where, const Bytes& what) {
    return std::search(where.begin(), where.end(), what.begin(), what.end()) != where.end();
}

class FolderDownloadTest : public FileServiceFixture {
protected:
    TransferOutcome downloadFolder(const char* from, const TransferProgressCallback& progress = {},
                                   const std::stop_token& stop = {}) {
        return service_->downloadDirectory(item(from), local_.path(), phone().info, progress, stop);
    }
    void override(const char* onDisk, const QString& shown) {
        phone().fault([&](VirtualFaults& faults) {
            faults.nameOverrides[QString::fromUtf8(onDisk)] = shown;
        });
    }
};

TEST_F(FolderDownloadTest, folderArrivesWithTrueTotalsFromTheFirstReportOn) {
    phone().write(QStringLiteral("Trip/a.txt"), manyBytes(100));
    phone().write(QStringLiteral("Trip/sub/b.bin"), manyBytes(900'000));
    phone().write(QStringLiteral("Trip/sub/deeper/c"), {});
    phone().disk.makeFolder(QStringLiteral("0/Trip/empty"));
    local_.write(QStringLiteral("Trip/mine"), "stays");
    std::vector<TransferProgress> reports;

    const TransferOutcome outcome =
        downloadFolder("/Trip", [&](const TransferProgress& now) { reports.push_back(now); });

    EXPECT_TRUE(outcome.isComplete());
    EXPECT_EQ(local_.names(QStringLiteral("Trip")),
              (QStringList{QStringLiteral("a.txt"), QStringLiteral("empty"), QStringLiteral("mine"),
                           QStringLiteral("sub")}));
    EXPECT_EQ(local_.read(QStringLiteral("Trip/sub/b.bin")), manyBytes(900'000));
    EXPECT_TRUE(local_.has(QStringLiteral("Trip/sub/deeper/c")));
    ASSERT_GT(reports.size(), 4U);
    EXPECT_EQ(reports.front(), (TransferProgress{3, 0, 900'100, 0, 0, 0}));
    EXPECT_EQ(reports.back(), (TransferProgress{3, 3, 900'100, 900'100, 0, 0}));
    EXPECT_EQ(outcome.progress, reports.back());
    qint64 bytes = 0;
    qint64 files = 0;
    for (const TransferProgress& report : reports) {
        EXPECT_EQ(report.totalBytes, 900'100);
        EXPECT_GE(report.completedBytes + report.currentFileBytes, bytes);
        EXPECT_GE(report.completedFiles, files);
        bytes = report.completedBytes + report.currentFileBytes;
        files = report.completedFiles;
    }
}

TEST_F(FolderDownloadTest, hostileNamesStayBehindAndEverythingElseIsCopied) {
    for (const char* name : {"parent", "slash", "blank", "surrogate", "long", "wide", "twin1",
                             "twin2", "twin3", "plain.txt", "dot"})
        phone().write(QStringLiteral("D/") + QString::fromLatin1(name), name);
    phone().write(QStringLiteral("D/evilFolder/loot.txt"), "loot");
    phone().write(QStringLiteral("D/wideFolder/lost.txt"), "lost");
    phone().write(QStringLiteral("D/fine/inside.txt"), "inside");
    override("parent", QStringLiteral(".."));
    override("dot", QStringLiteral("."));
    override("slash", QStringLiteral("../../a/b"));
    override("blank", QString());
    override("surrogate", QString(QChar(0xD83D)) + QStringLiteral("x"));
    override("long", QString(255, QLatin1Char('n')));
    override("wide", QString(200, QChar(0x4E00)));
    override("wideFolder", QString(201, QChar(0x4E00)));
    override("twin1", QStringLiteral("twin.txt"));
    override("twin2", QStringLiteral("twin.txt"));
    override("twin3", QStringLiteral("twin (2).txt"));
    override("evilFolder", QStringLiteral(".."));
    const TemporaryFolder target;
    target.makeFolder(QStringLiteral("in"));

    const TransferOutcome outcome =
        service_->downloadDirectory(item("/D"), target.path(QStringLiteral("in")), phone().info);

    EXPECT_EQ(target.names(), QStringList(QStringLiteral("in")));
    EXPECT_EQ(target.names(QStringLiteral("in")), QStringList(QStringLiteral("D")));
    QStringList skipped = skippedPaths(outcome);
    skipped.sort();
    EXPECT_EQ(skipped,
              (QStringList{QStringLiteral("/D/"), QStringLiteral("/D/."), QStringLiteral("/D/.."),
                           QStringLiteral("/D/.."), QStringLiteral("/D/../../a/b"),
                           QStringLiteral("/D/") + QString(200, QChar(0x4E00)),
                           QStringLiteral("/D/") + QString(201, QChar(0x4E00))}));
    QByteArrayList contents;
    for (const QString& name : target.names(QStringLiteral("in/D")))
        contents.append(target.read(QStringLiteral("in/D/") + name));
    contents.removeAll(QByteArray()); // the folder
    std::sort(contents.begin(), contents.end());
    EXPECT_EQ(contents,
              (QByteArrayList{"long", "plain.txt", "surrogate", "twin1", "twin2", "twin3"}));
    EXPECT_EQ(target.read(QStringLiteral("in/D/fine/inside.txt")), "inside");
    EXPECT_EQ(target.names(QStringLiteral("in/D")).size(), 7);
}

TEST_F(FolderDownloadTest, folderWhoseOwnNameIsHostileIsRefused) {
    phone().write(QStringLiteral("evil/loot"), "loot");
    override("evil", QStringLiteral(".."));
    const std::vector<FileItem> items = list("/");
    ASSERT_EQ(items.size(), 1U);
    const TemporaryFolder target;
    target.makeFolder(QStringLiteral("in"));
    EXPECT_THROW((void)service_->downloadDirectory(items[0], target.path(QStringLiteral("in")),
                                                   phone().info),
                 TessaryError);
    EXPECT_EQ(target.names(), QStringList(QStringLiteral("in")));
    EXPECT_TRUE(target.names(QStringLiteral("in")).isEmpty());
}

TEST_F(FolderDownloadTest, folderThatHoldsItselfOrWhatHoldsItIsCopiedOnce) {
    phone().write(QStringLiteral("A/B/f"), "f");
    phone().fault([](VirtualFaults& faults) {
        faults.foldersHoldThemselves = true;
        faults.repeatsHandles = true;
    });
    EXPECT_TRUE(downloadFolder("/A").isComplete());
    EXPECT_EQ(local_.names(QStringLiteral("A")), QStringList(QStringLiteral("B")));
    EXPECT_EQ(local_.names(QStringLiteral("A/B")), QStringList(QStringLiteral("f")));

    // Now B lists its own parent.
    const std::uint32_t outer = *item("/A").handle;
    const std::uint32_t inner = *item("/A/B").handle;
    phone().fault([&](VirtualFaults& faults) {
        faults.foldersHoldThemselves = false;
        faults.rewrite = [=](const VirtualAnswer& answer) -> std::optional<Bytes> {
            Bytes list = MTPPacketCodec::encodeHeader(
                {20, MTPContainerType::data, answer.operation,
                 readLittleEndian<std::uint32_t>(answer.container, 8)});
            appendLittleEndian(list, std::uint32_t{1});
            appendLittleEndian(list, outer);
            const bool namesFile = answer.container.size() > 20 &&
                                   readLittleEndian<std::uint32_t>(answer.container, 16) != inner &&
                                   readLittleEndian<std::uint32_t>(answer.container, 16) != outer;
            const bool isList = answer.operation == static_cast<std::uint16_t>(
                                                        MTPOperationCode::getObjectHandles) &&
                                answer.type == MTPContainerType::data;
            return isList && namesFile ? std::optional(list) : std::nullopt;
        };
    });
    const TransferOutcome outcome = downloadFolder("/A");
    EXPECT_EQ(skippedPaths(outcome), QStringList(QStringLiteral("/A/B/A")));
    EXPECT_FALSE(local_.has(QStringLiteral("A/B/A")));
}

TEST_F(FolderDownloadTest, childThatCannotBeReadIsNamedAndTheRestIsCopied) {
    for (const char* name : {"a", "b-broken", "c", "d-broken"})
        phone().write(QStringLiteral("D/") + QString::fromLatin1(name), name);
    phone().write(QStringLiteral("D/sub/e"), "e");
    // One answer is no object information, and the first file is refused.
    phone().refuse(MTPOperationCode::getObject, MTPResponseCode::accessDenied, false);
    phone().fault([](VirtualFaults& faults) {
        faults.rewrite = [](const VirtualAnswer& answer) -> std::optional<Bytes> {
            if (answer.type != MTPContainerType::data ||
                !contains(answer.container, utf16(QStringLiteral("-broken"))))
                return std::nullopt;
            return MTPPacketCodec::encodeHeader(
                {12, MTPContainerType::data, answer.operation,
                 readLittleEndian<std::uint32_t>(answer.container, 8)});
        };
    });
    const TransferOutcome outcome = downloadFolder("/D");
    EXPECT_EQ(outcome.skipped.size(), 3U) << skippedPaths(outcome).join(u' ').toStdString();
    EXPECT_TRUE(skippedPaths(outcome).contains(QStringLiteral("/D/a")));
    EXPECT_EQ(local_.names(QStringLiteral("D")),
              (QStringList{QStringLiteral("c"), QStringLiteral("sub")}));
    EXPECT_EQ(local_.read(QStringLiteral("D/sub/e")), "e");
    EXPECT_EQ(outcome.progress.completedFiles, 2);
}

TEST_F(FolderDownloadTest, whatIsInTheWayHereIsNamedAndKept) {
    phone().write(QStringLiteral("D/file"), "new");
    phone().write(QStringLiteral("D/folder/x"), "new");
    phone().write(QStringLiteral("D/z"), "new");
    local_.write(QStringLiteral("D/file/kept"), "old");
    local_.write(QStringLiteral("D/folder"), "old");
    const TransferOutcome outcome = downloadFolder("/D");
    EXPECT_EQ(local_.read(QStringLiteral("D/file/kept")), "old");
    EXPECT_EQ(local_.read(QStringLiteral("D/folder")), "old");
    EXPECT_EQ(local_.read(QStringLiteral("D/z")), "new");
    QStringList skipped = skippedPaths(outcome);
    skipped.sort();
    EXPECT_EQ(skipped, (QStringList{QStringLiteral("/D/file"), QStringLiteral("/D/folder")}));
}

TEST_F(FolderDownloadTest, folderThatThePhoneDoesNotListIsAnError) {
    phone().write(QStringLiteral("D/file"), "x");
    const FileItem folder = item("/D");
    phone().refuse(MTPOperationCode::getObjectHandles, MTPResponseCode::accessDenied);
    EXPECT_FALSE(failureOf([&] {
                     (void)service_->downloadDirectory(folder, local_.path(), phone().info);
                 }).isEmpty());
    EXPECT_TRUE(local_.names().isEmpty());
}

TEST_F(FolderDownloadTest, unpluggingAFolderCopyEndsItWithoutPartialFiles) {
    for (int n = 0; n < 6; ++n)
        phone().write(QStringLiteral("D/%1").arg(n), manyBytes(100'000));
    const FileItem folder = item("/D");
    for (unsigned phase = 1; phase <= 24; phase += 3) {
        const TemporaryFolder target;
        phone().fault([&](VirtualFaults& faults) {
            faults.unplug = VirtualByteFault{UsbDirection::in, 16, phase};
        });
        EXPECT_FALSE(failureOf([&] {
                         (void)service_->downloadDirectory(folder, target.path(), phone().info);
                     }).isEmpty())
            << phase;
        for (const QString& name : target.names(QStringLiteral("D")))
            EXPECT_EQ(target.read(QStringLiteral("D/") + name).size(), 100'000) << phase;
        replug();
    }
}

TEST_F(FolderDownloadTest, cancelledFolderCopyStopsBetweenFilesAndInOne) {
    for (int n = 0; n < 6; ++n)
        phone().write(QStringLiteral("D/%1").arg(n), manyBytes(700'000));
    for (const qint64 current : {0, 1}) {
        const TemporaryFolder target;
        std::stop_source stop;
        EXPECT_THROW((void)service_->downloadDirectory(
                         item("/D"), target.path(), phone().info,
                         [&](const TransferProgress& now) {
                             if (now.completedFiles == 2 && now.currentFileBytes >= current)
                                 stop.request_stop();
                         },
                         stop.get_token()),
                     CancellationError);
        EXPECT_EQ(target.names(QStringLiteral("D")).size(), 2);
    }
    EXPECT_TRUE(downloadFolder("/D").isComplete());
}

TEST_F(FolderDownloadTest, listingGetsInBetweenTwoFilesOnTheSameSession) {
    for (int n = 0; n < 20; ++n)
        phone().write(QStringLiteral("D/%1").arg(n), manyBytes(100));
    phone().write(QStringLiteral("Other/x"), "x");
    const FileItem folder = item("/D");
    phone().android.clearRequestLog();
    std::future<std::size_t> listing;
    qint64 filesBefore = -1;
    qint64 filesAfter = -1;
    (void)service_->downloadDirectory(
        folder, local_.path(), phone().info, [&](const TransferProgress& now) {
            if (now.completedFiles == 1 && !listing.valid()) {
                filesBefore = now.completedFiles;
                listing = std::async(std::launch::async, [this] { return list("/Other").size(); });
            }
            if (listing.valid() && filesAfter < 0) {
                if (listing.wait_for(10ms) == std::future_status::ready)
                    filesAfter = now.completedFiles;
                // A poll does not disturb the copy.
                EXPECT_FALSE(service_->fetchLiveDeviceInfo(phone().info));
            }
        });
    ASSERT_TRUE(listing.valid());
    EXPECT_EQ(listing.get(), 1U);
    EXPECT_EQ(filesBefore, 1);
    EXPECT_GE(filesAfter, 1);
    EXPECT_LT(filesAfter, 20);
    EXPECT_EQ(phone().requests(MTPOperationCode::openSession), 1U);
}

} // namespace
} // namespace tessary
