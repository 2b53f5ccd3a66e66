#include "base/values/LittleEndian.h"
#include "support/FileServiceFixture.h"

#include <algorithm>
#include <future>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

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
    phone().write(u"Trip/a.txt"_s, manyBytes(100));
    phone().write(u"Trip/sub/b.bin"_s, manyBytes(900'000));
    phone().write(u"Trip/sub/deeper/c"_s, {});
    phone().disk.makeFolder(u"0/Trip/empty"_s);
    local_.write(u"Trip/mine"_s, "stays");
    std::vector<TransferProgress> reports;

    const TransferOutcome outcome =
        downloadFolder("/Trip", [&](const TransferProgress& now) { reports.push_back(now); });
    EXPECT_TRUE(outcome.isComplete());
    EXPECT_EQ(local_.names(u"Trip"_s), (QStringList{u"a.txt"_s, u"empty"_s, u"mine"_s, u"sub"_s}));
    EXPECT_EQ(local_.read(u"Trip/sub/b.bin"_s), manyBytes(900'000));
    EXPECT_TRUE(local_.has(u"Trip/sub/deeper/c"_s));
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
    const std::pair<const char*, QString> shown[] = {
        {"parent", u".."_s},
        {"dot", u"."_s},
        {"slash", u"../../a/b"_s},
        {"blank", QString()},
        {"wide", QString(200, QChar(0x4E00))},
        {"surrogate", QString(QChar(0xD83D)) + u"x"_s},
        {"long", QString(255, u'n')},
        {"twin1", u"twin.txt"_s},
        {"twin2", u"twin.txt"_s},
        {"twin3", u"twin (2).txt"_s},
        {"plain.txt", u"plain.txt"_s},
    };
    for (const auto& [onDisk, name] : shown) {
        phone().write(u"D/"_s + QString::fromLatin1(onDisk), onDisk);
        override(onDisk, name);
    }
    phone().write(u"D/evilFolder/loot.txt"_s, "loot");
    phone().write(u"D/wideFolder/lost.txt"_s, "lost");
    phone().write(u"D/fine/inside.txt"_s, "inside");
    override("evilFolder", u".."_s);
    override("wideFolder", QString(201, QChar(0x4E00)));
    const TemporaryFolder target;
    target.makeFolder(u"in"_s);

    const TransferOutcome outcome =
        service_->downloadDirectory(item("/D"), target.path(u"in"_s), phone().info);

    EXPECT_EQ(target.names(), QStringList(u"in"_s));
    EXPECT_EQ(target.names(u"in"_s), QStringList(u"D"_s));
    EXPECT_EQ(skippedPaths(outcome),
              (QStringList{u"/D/"_s, u"/D/."_s, u"/D/.."_s, u"/D/.."_s, u"/D/../../a/b"_s,
                           u"/D/"_s + QString(200, QChar(0x4E00)),
                           u"/D/"_s + QString(201, QChar(0x4E00))}));
    QByteArrayList contents;
    for (const QString& name : target.names(u"in/D"_s))
        contents.append(target.read(u"in/D/"_s + name));
    std::sort(contents.begin(), contents.end());
    EXPECT_EQ(contents,
              (QByteArrayList{{}, "long", "plain.txt", "surrogate", "twin1", "twin2", "twin3"}));
    EXPECT_EQ(target.read(u"in/D/fine/inside.txt"_s), "inside");
}

TEST_F(FolderDownloadTest, folderWhoseOwnNameIsHostileIsRefused) {
    phone().write(u"evil/loot"_s, "loot");
    override("evil", u".."_s);
    const FileItem evil = list("/").at(0);
    const TemporaryFolder target;
    const QString into = target.makeFolder(u"in"_s);
    EXPECT_TRUE(fails([&] { (void)service_->downloadDirectory(evil, into, phone().info); }));
    EXPECT_EQ(target.names(), QStringList(u"in"_s));
    EXPECT_TRUE(target.names(u"in"_s).isEmpty());
}

TEST_F(FolderDownloadTest, folderThatHoldsItselfOrWhatHoldsItIsCopiedOnce) {
    phone().write(u"A/B/f"_s, "f");
    phone().fault([](VirtualFaults& faults) {
        faults.foldersHoldThemselves = true;
        faults.repeatsHandles = true;
    });
    EXPECT_TRUE(downloadFolder("/A").isComplete());
    EXPECT_EQ(local_.names(u"A"_s), QStringList(u"B"_s));
    EXPECT_EQ(local_.names(u"A/B"_s), QStringList(u"f"_s));

    // Now B lists its own parent.
    const std::uint32_t outer = *item("/A").handle;
    const std::uint32_t inner = *item("/A/B").handle;
    phone().fault([](VirtualFaults& faults) { faults.foldersHoldThemselves = false; });
    phone().rewriteData(MTPOperationCode::getObjectHandles, [=](Bytes& list) {
        const auto first = list.size() < 20 ? 0 : readLittleEndian<std::uint32_t>(list, 16);
        const bool isOfInner = first != 0 && first != inner && first != outer;
        for (std::size_t n = 0; isOfInner && n < 4; ++n)
            list[16 + n] = static_cast<std::byte>(outer >> 8 * n);
    });
    const TransferOutcome outcome = downloadFolder("/A");
    EXPECT_EQ(skippedPaths(outcome), QStringList(u"/A/B/A"_s));
    EXPECT_FALSE(local_.has(u"A/B/A"_s));
}

TEST_F(FolderDownloadTest, childThatCannotBeReadIsNamedAndTheRestIsCopied) {
    for (const char* name : {"a", "b-broken", "c", "d-broken"})
        phone().write(u"D/"_s + QString::fromLatin1(name), name);
    phone().write(u"D/sub/e"_s, "e");
    // One answer is no object information, and the first file is refused.
    phone().refuse(MTPOperationCode::getObject, MTPResponseCode::accessDenied, false);
    phone().rewriteData(MTPOperationCode::getObjectInfo, [](Bytes& info) {
        const QByteArray bytes(reinterpret_cast<const char*>(info.data()),
                               static_cast<qsizetype>(info.size()));
        if (bytes.contains(QByteArray("-\0b\0r", 5)))
            PluggedPhone::cutToHeader(info);
    });
    const TransferOutcome outcome = downloadFolder("/D");
    EXPECT_EQ(outcome.skipped.size(), 3U) << skippedPaths(outcome).join(u' ').toStdString();
    EXPECT_TRUE(skippedPaths(outcome).contains(u"/D/a"_s));
    EXPECT_EQ(local_.names(u"D"_s), (QStringList{u"c"_s, u"sub"_s}));
    EXPECT_EQ(local_.read(u"D/sub/e"_s), "e");
    EXPECT_EQ(outcome.progress.completedFiles, 2);
}

TEST_F(FolderDownloadTest, whatIsInTheWayHereIsNamedAndKept) {
    phone().write(u"D/file"_s, "new");
    phone().write(u"D/folder/x"_s, "new");
    phone().write(u"D/z"_s, "new");
    local_.write(u"D/file/kept"_s, "old");
    local_.write(u"D/folder"_s, "old");
    const TransferOutcome outcome = downloadFolder("/D");
    EXPECT_EQ(local_.read(u"D/file/kept"_s), "old");
    EXPECT_EQ(local_.read(u"D/folder"_s), "old");
    EXPECT_EQ(local_.read(u"D/z"_s), "new");
    EXPECT_EQ(skippedPaths(outcome), (QStringList{u"/D/file"_s, u"/D/folder"_s}));
}

TEST_F(FolderDownloadTest, folderThatThePhoneDoesNotListIsAnError) {
    phone().write(u"D/file"_s, "x");
    const FileItem folder = item("/D");
    phone().refuse(MTPOperationCode::getObjectHandles, MTPResponseCode::accessDenied);
    EXPECT_TRUE(
        fails([&] { (void)service_->downloadDirectory(folder, local_.path(), phone().info); }));
    EXPECT_TRUE(local_.names().isEmpty());
}

TEST_F(FolderDownloadTest, unpluggingAFolderCopyEndsItWithoutPartialFiles) {
    for (int n = 0; n < 6; ++n)
        phone().write(u"D/%1"_s.arg(n), manyBytes(100'000));
    const FileItem folder = item("/D");
    for (unsigned phase = 1; phase <= 24; phase += 3) {
        const TemporaryFolder target;
        phone().unplugAfter(USBDirection::in, 16, phase);
        EXPECT_TRUE(fails([&] {
            (void)service_->downloadDirectory(folder, target.path(), phone().info);
        })) << phase;
        for (const QString& name : target.names(u"D"_s))
            EXPECT_EQ(target.read(u"D/"_s + name).size(), 100'000) << phase;
        replug();
    }
}

TEST_F(FolderDownloadTest, cancelledFolderCopyStopsBetweenFilesAndInOne) {
    for (int n = 0; n < 6; ++n)
        phone().write(u"D/%1"_s.arg(n), manyBytes(700'000));
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
        EXPECT_EQ(target.names(u"D"_s).size(), 2);
    }
    EXPECT_TRUE(downloadFolder("/D").isComplete());
}

TEST_F(FolderDownloadTest, listingGetsInBetweenTwoFilesOnTheSameSession) {
    for (int n = 0; n < 20; ++n)
        phone().write(u"D/%1"_s.arg(n), manyBytes(100));
    phone().write(u"Other/x"_s, "x");
    const FileItem folder = item("/D");
    phone().android.clearRequestLog();
    std::future<std::size_t> listing;
    qint64 filesAfter = 20;
    (void)service_->downloadDirectory(
        folder, local_.path(), phone().info, [&](const TransferProgress& now) {
            if (now.completedFiles == 1 && !listing.valid())
                listing = std::async(std::launch::async, [this] { return list("/Other").size(); });
            if (listing.valid() && filesAfter == 20 &&
                listing.wait_for(10ms) == std::future_status::ready)
                filesAfter = now.completedFiles;
        });
    ASSERT_TRUE(listing.valid());
    EXPECT_EQ(listing.get(), 1U);
    EXPECT_LT(filesAfter, 20);
    EXPECT_EQ(phone().requests(MTPOperationCode::openSession), 1U);
}

} // namespace
} // namespace tessary
