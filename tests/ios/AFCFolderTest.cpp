#include "core/CancellationError.h"
#include "ios/AFCClient.h"
#include "support/Application.h"
#include "support/IOSFailure.h"
#include "support/PluggedIPhone.h"
#include "support/QtPrinters.h"

#include <QFileInfo>
#include <unistd.h>

#include <gtest/gtest.h>

#include <thread>

namespace tessary {
namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

QStringList pathsOf(const std::vector<SkippedItem>& skipped) {
    QStringList paths;
    for (const SkippedItem& item : skipped)
        paths << item.path;
    paths.sort();
    return paths;
}

class AFCFolderTest : public Application, public testing::Test {
protected:
    TransferProgressCallback collect() {
        return [this](const TransferProgress& progress) { seen_.push_back(progress); };
    }
    void expectTrueTotals(qint64 files, qint64 bytes) {
        ASSERT_TRUE(
            eventually([&] { return !seen_.empty() && seen_.back().completedFiles == files; }));
        qint64 before = 0;
        for (const TransferProgress& progress : seen_) {
            EXPECT_EQ(progress.totalFiles, files);
            EXPECT_EQ(progress.totalBytes, bytes);
            const qint64 done = progress.completedBytes + progress.currentFileBytes;
            EXPECT_GE(done, before);
            before = done;
        }
        EXPECT_EQ(before, bytes);
    }

    TemporaryFolder here_;
    PluggedIPhone iphone_;
    std::unique_ptr<AFCClient> client_ = iphone_.open();
    std::vector<TransferProgress> seen_;
};

TEST_F(AFCFolderTest, aTreeTravelsBothWaysWithTrueTotals) {
    here_.write(u"tree/a.txt"_s, "12345");
    here_.write(u"tree/.hidden"_s, "1");
    here_.write(u"tree/sub/deep/b.bin"_s, QByteArray(3 << 19, 'b'));
    here_.makeFolder(u"tree/empty"_s);
    constexpr qint64 bytes = 6 + (3 << 19);
    const TransferOutcome up =
        client_->uploadDirectory(here_.path(u"tree"_s), u"/new"_s, collect());
    EXPECT_TRUE(up.isComplete());
    EXPECT_EQ(up.progress.completedBytes, bytes);
    EXPECT_EQ(iphone_.read(u"new/sub/deep/b.bin"_s), QByteArray(3 << 19, 'b'));
    EXPECT_TRUE(iphone_.has(u"new/empty"_s));
    expectTrueTotals(3, bytes);

    seen_.clear();
    const TransferOutcome down =
        client_->downloadDirectory(u"/new"_s, here_.path(u"back"_s), collect());
    EXPECT_TRUE(down.isComplete());
    EXPECT_EQ(here_.read(u"back/a.txt"_s), QByteArray("12345"));
    EXPECT_EQ(here_.read(u"back/.hidden"_s), QByteArray("1"));
    EXPECT_TRUE(here_.has(u"back/empty"_s));
    expectTrueTotals(3, bytes);
    // Once more over what is there.
    EXPECT_TRUE(client_->uploadDirectory(here_.path(u"tree"_s), u"/new"_s).isComplete());
}

TEST_F(AFCFolderTest, whatCannotBeDownloadedIsNamedAndTheRestIsCopied) {
    for (const QString& name : {u"good"_s, u"evil1"_s, u"evil2"_s, u"refused"_s, u"long"_s})
        iphone_.write(name, "x");
    here_.makeFolder(u"target/inTheWay"_s);
    iphone_.write(u"inTheWay"_s, "x");
    iphone_.faults([](VirtualIPhoneFaults& faults) {
        faults.nameOverrides[u"evil1"_s] = u"../../escaped"_s;
        faults.nameOverrides[u"evil2"_s] = u"a/b"_s;
        faults.nameOverrides[u"long"_s] = QString(300, u'n');
        faults.nameOverrides[u"refused"_s] = u"gone"_s;
    });
    const TransferOutcome outcome =
        client_->downloadDirectory(u"/"_s, here_.path(u"target"_s), collect());
    EXPECT_EQ(pathsOf(outcome.skipped),
              QStringList({u"/Documents/../../escaped"_s, u"/Documents/a/b"_s, u"/Documents/gone"_s,
                           u"/Documents/inTheWay"_s, u"/Documents/"_s + QString(300, u'n')}));
    EXPECT_EQ(outcome.progress.completedFiles, 1);
    EXPECT_EQ(here_.names(), QStringList(u"target"_s));
    EXPECT_EQ(here_.names(u"target"_s), QStringList({u"good"_s, u"inTheWay"_s}));
}

TEST_F(AFCFolderTest, whatCannotBeUploadedIsNamedAndTheRestIsCopied) {
    here_.write(u"tree/a"_s, "1");
    here_.write(u"tree/folder/inside"_s, "1");
    here_.write(u"tree/refused"_s, "1");
    here_.write(u"tree/z"_s, "1");
    ASSERT_EQ(symlink("nowhere", here_.path(u"tree/link"_s).toUtf8().constData()), 0);
    iphone_.write(u"new/folder"_s, "a file of this name");
    iphone_.disk.makeFolder(iphone_.inDocuments(u"new/refused"_s));
    const TransferOutcome outcome = client_->uploadDirectory(here_.path(u"tree"_s), u"/new"_s);
    EXPECT_EQ(pathsOf(outcome.skipped), QStringList({u"folder"_s, u"link"_s, u"refused"_s}));
    EXPECT_EQ(outcome.progress.completedFiles, 2);
    EXPECT_EQ(iphone_.read(u"new/folder"_s), QByteArray("a file of this name"));
    EXPECT_TRUE(iphone_.has(u"new/z"_s));
}

TEST_F(AFCFolderTest, aFullPhoneEndsTheTransfer) {
    for (int i = 0; i < 10; ++i)
        here_.write(u"tree/%1"_s.arg(i), "1");
    iphone_.faults([](VirtualIPhoneFaults& faults) {
        faults.statuses[u"afc.fileWrite"_s] = {18, true};
    });
    EXPECT_EQ(failureOf([&] { (void)client_->uploadDirectory(here_.path(u"tree"_s), u"/new"_s); }),
              u"AFC Error: noSpaceLeft (code 18)"_s);
    EXPECT_EQ(iphone_.count("afc.fileWrite"), 1U);
}

TEST_F(AFCFolderTest, cancellingStopsAtOnceAndListingsComeInBetween) {
    for (int i = 0; i < 200; ++i)
        iphone_.write(u"many/%1"_s.arg(i), QByteArray(1000, 'x'));
    iphone_.faults([](VirtualIPhoneFaults& faults) { faults.delay[u"afc.fileRead"_s] = 10ms; });
    std::stop_source stop;
    std::jthread visitor([&] {
        while (iphone_.count("afc.fileRead") < 4)
            std::this_thread::sleep_for(1ms);
        EXPECT_EQ(client_->listContents(u"/"_s).size(), 1U);
        stop.request_stop();
    });
    EXPECT_THROW(
        (void)client_->downloadDirectory(u"/many"_s, here_.path(u"many"_s), {}, stop.get_token()),
        CancellationError);
    visitor.join();
    EXPECT_LT(iphone_.count("afc.fileOpen"), 60U);
    EXPECT_LT(here_.names(u"many"_s).size(), 60);
}

} // namespace
} // namespace tessary
