#include "ios/AFCClient.h"

#include "base/threads/CancellationError.h"
#include "support/Application.h"
#include "support/Failure.h"
#include "support/ManyBytes.h"
#include "support/PluggedIPhone.h"
#include "support/QtPrinters.h"

#include <QFileInfo>
#include <QTimeZone>

#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <thread>

namespace tessary {
namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

constexpr qint64 mebibyte = qint64{1} << 20;

QStringList pathsOf(const std::vector<SkippedItem>& skipped) {
    QStringList paths;
    for (const SkippedItem& item : skipped)
        paths << item.path;
    paths.sort();
    return paths;
}

class AFCTransferTest : public Application, public testing::Test {
protected:
    void refuse(const char* request, std::uint64_t status) {
        iphone_.faults([&](VirtualIPhoneFaults& faults) {
            faults.statuses[QString::fromLatin1(request)] = {status, false};
        });
    }
    /// Stops a call once the phone has seen so many requests of a kind.
    std::jthread stopAfter(const char* request, std::size_t requests, std::stop_source& stop) {
        return std::jthread([this, request, requests, stop]() mutable {
            while (iphone_.count(request) < requests)
                std::this_thread::sleep_for(1ms);
            stop.request_stop();
        });
    }

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

TEST_F(AFCTransferTest, bytesDatesAndProgressAreRightAtEverySize) {
    const QDateTime date(QDate(2021, 3, 4), QTime(5, 6, 7), QTimeZone::utc());
    for (const qint64 size :
         {qint64{0}, qint64{1}, mebibyte - 1, mebibyte, mebibyte + 1, 5 * mebibyte / 2}) {
        const QByteArray content = manyBytes(size);
        const QString source = here_.write(u"source"_s, content);
        QFile file(source);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(date, QFileDevice::FileModificationTime));
        file.close();
        std::vector<std::pair<qint64, qint64>> told;
        const auto tell = [&told](qint64 done, qint64 total) { told.emplace_back(done, total); };
        if (iphone_.has(u"up"_s))
            refuse("afc.renamePath", 16); // some phones replace nothing by a renaming
        client_->uploadFile(source, u"/up"_s, tell);
        EXPECT_EQ(iphone_.read(u"up"_s), content);
        EXPECT_EQ(client_->itemAt(u"/up"_s).modifiedDate, date);
        EXPECT_EQ(client_->downloadFile(u"/up"_s, here_.path(u"down"_s), size, tell), size);
        EXPECT_EQ(here_.read(u"down"_s), content);
        EXPECT_EQ(QFileInfo(here_.path(u"down"_s)).lastModified(), date);
        EXPECT_TRUE(told.empty()); // on the main thread, afterwards
        const auto pieces = static_cast<std::size_t>((size + mebibyte - 1) / mebibyte);
        EXPECT_TRUE(eventually([&] { return told.size() == 2 * pieces; })) << told.size();
        if (size > 0) {
            EXPECT_EQ(told.back(), std::pair(size, size));
        }
    }
    EXPECT_EQ(here_.names(), QStringList({u"down"_s, u"source"_s}));
}

TEST_F(AFCTransferTest, anOlderFileIsReplacedOnlyByAWholeCopy) {
    iphone_.write(u"a"_s, manyBytes(3 * mebibyte));
    here_.write(u"a"_s, "old");
    refuse("afc.fileRead", 20);
    EXPECT_EQ(failureOf([&] { client_->downloadFile(u"/a"_s, here_.path(u"a"_s), 3 * mebibyte); }),
              u"AFC Error: ioError (code 20)"_s);
    EXPECT_EQ(here_.read(u"a"_s), QByteArray("old"));
    EXPECT_EQ(here_.names(), QStringList(u"a"_s));
    client_->downloadFile(u"/a"_s, here_.path(u"a"_s), 3 * mebibyte);
    EXPECT_EQ(here_.read(u"a"_s), manyBytes(3 * mebibyte));
}

TEST_F(AFCTransferTest, shortAnswersAreReadOnUntilTheEnd) {
    iphone_.write(u"a"_s, manyBytes(300'000));
    iphone_.faults([](VirtualIPhoneFaults& faults) { faults.longestRead = 70'001; });
    client_->downloadFile(u"/a"_s, here_.path(u"a"_s), 300'000);
    EXPECT_EQ(here_.read(u"a"_s), manyBytes(300'000));
}

TEST_F(AFCTransferTest, aFileThatDiffersFromItsSizeIsNotKept) {
    iphone_.write(u"a"_s, "12345");
    for (const char* size : {"4", "6", "0"}) {
        iphone_.faults([size](VirtualIPhoneFaults& faults) {
            faults.rewriteFileInfo = [size](const QString&, const QStringList&) {
                return QStringList({u"st_size"_s, QString::fromLatin1(size)});
            };
        });
        EXPECT_EQ(failureOf([&] { client_->downloadFile(u"/a"_s, here_.path(u"a"_s), 5); }),
                  u"File I/O error: The phone sent 5 of the %1 bytes of a. Copy it again."_s.arg(
                      QString::fromLatin1(size)));
    }
    EXPECT_TRUE(here_.names().isEmpty());
    iphone_.faults([](VirtualIPhoneFaults& faults) {
        faults.rewriteFileInfo = [](const QString&, const QStringList&) {
            return QStringList({u"st_size"_s, u"five"_s});
        };
    });
    EXPECT_EQ(client_->downloadFile(u"/a"_s, here_.path(u"a"_s), 5), 5);
}

TEST_F(AFCTransferTest, aFullPhoneKeepsNoPartOfTheCopy) {
    const QString big = here_.write(u"big"_s, manyBytes(3 * mebibyte));
    iphone_.faults([](VirtualIPhoneFaults& faults) { faults.storeFullAfter = 2 * mebibyte; });
    EXPECT_EQ(failureOf([&] { client_->uploadFile(big, u"/big"_s); }),
              u"AFC Error: noSpaceLeft (code 18)"_s);
    EXPECT_FALSE(iphone_.has(u"big"_s));
    EXPECT_FALSE(client_->isLost());
}

TEST_F(AFCTransferTest, cancelledCopiesLeaveNothing) {
    const QString big = here_.write(u"big"_s, manyBytes(16 * mebibyte));
    iphone_.write(u"big"_s, manyBytes(16 * mebibyte));
    iphone_.faults([](VirtualIPhoneFaults& faults) {
        faults.delay[u"afc.fileRead"_s] = 100ms;
        faults.delay[u"afc.fileWrite"_s] = 100ms;
    });
    std::stop_source stopUp;
    const auto upStopper = stopAfter("afc.fileWrite", 1, stopUp);
    EXPECT_THROW(client_->uploadFile(big, u"/up"_s, {}, stopUp.get_token()), CancellationError);
    EXPECT_FALSE(iphone_.has(u"up"_s));
    EXPECT_LT(iphone_.count("afc.fileWrite"), 16U);
    std::stop_source stopDown;
    const auto downStopper = stopAfter("afc.fileRead", 1, stopDown);
    EXPECT_THROW(client_->downloadFile(u"/big"_s, here_.path(u"down"_s), 16 * mebibyte, {},
                                       stopDown.get_token()),
                 CancellationError);
    EXPECT_EQ(here_.names(), QStringList(u"big"_s));
    EXPECT_EQ(client_->listContents(u"/"_s).size(), 1U); // the queue goes on
}

TEST_F(AFCTransferTest, aFileThatShrinksWhileItIsSentIsNotKept) {
    const QString path = here_.write(u"a"_s, manyBytes(4 * mebibyte));
    iphone_.faults([](VirtualIPhoneFaults& faults) { faults.delay[u"afc.fileWrite"_s] = 100ms; });
    std::jthread shrink([&] {
        while (iphone_.count("afc.fileWrite") < 1)
            std::this_thread::sleep_for(1ms);
        EXPECT_TRUE(QFile::resize(path, mebibyte));
    });
    EXPECT_EQ(failureOf([&] { client_->uploadFile(path, u"/a"_s); }),
              u"AFC Error: writeError (code 5)"_s);
    EXPECT_FALSE(iphone_.has(u"a"_s));
}

TEST_F(AFCTransferTest, aSilentPhoneKeepsNobodyWhoWantsToStop) {
    iphone_.write(u"big"_s, manyBytes(4 * mebibyte));
    iphone_.faults([](VirtualIPhoneFaults& faults) {
        faults.byteFault = {VirtualDirection::toHost, 2 * mebibyte, VirtualCut::stall};
    });
    std::stop_source stop;
    const auto stopper = stopAfter("afc.fileRead", 2, stop);
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_THROW(
        client_->downloadFile(u"/big"_s, here_.path(u"big"_s), 4 * mebibyte, {}, stop.get_token()),
        CancellationError);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 10s);
    EXPECT_TRUE(here_.names().isEmpty());
    iphone_.phone.unplug(); // or the client's end would wait for the library's own patience
}

TEST_F(AFCTransferTest, aTreeTravelsBothWaysWithTrueTotals) {
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

TEST_F(AFCTransferTest, whatCannotBeDownloadedIsNamedAndTheRestIsCopied) {
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

TEST_F(AFCTransferTest, whatCannotBeUploadedIsNamedAndTheRestIsCopied) {
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

TEST_F(AFCTransferTest, aFullPhoneEndsTheTransfer) {
    for (int i = 0; i < 10; ++i)
        here_.write(u"tree/%1"_s.arg(i), "1");
    iphone_.faults([](VirtualIPhoneFaults& faults) {
        faults.statuses[u"afc.fileWrite"_s] = {18, true};
    });
    EXPECT_EQ(failureOf([&] { (void)client_->uploadDirectory(here_.path(u"tree"_s), u"/new"_s); }),
              u"AFC Error: noSpaceLeft (code 18)"_s);
    EXPECT_EQ(iphone_.count("afc.fileWrite"), 1U);
}

TEST_F(AFCTransferTest, cancellingStopsAtOnceAndListingsComeInBetween) {
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

TEST_F(AFCTransferTest, silenceWithoutAnEndIsATimeout) {
    client_ = iphone_.open({.afterStop = 100ms, .ofSilence = 500ms});
    iphone_.faults([](VirtualIPhoneFaults& faults) { faults.hang.insert(u"afc.readDir"_s); });
    EXPECT_EQ(failureOf([&] { (void)client_->listContents(u"/"_s); }),
              u"AFC Error: opTimeout (code 12)"_s);
    EXPECT_TRUE(client_->isLost());
    EXPECT_EQ(failureOf([&] { (void)client_->listContents(u"/"_s); }),
              u"AFC Error: serviceNotConnected (code 11)"_s);
    iphone_.phone.unplug();
}

} // namespace
} // namespace tessary
