#include "core/TessaryError.h"
#include "support/Application.h"
#include "support/PluggedIPhone.h"
#include "support/QtPrinters.h"
#include "sync/DiskSyncFolder.h"
#include "sync/SyncRun.h"
#include "sync/iOSSyncBackend.h"

#include <QDirIterator>
#include <gmock/gmock.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

using Files = std::map<QString, QByteArray>;

/// Runs between a folder of this computer and "/Sync" of an app of a virtual iPhone.
class SyncIPhoneTest : public Application, public testing::Test {
protected:
    SyncIPhoneTest() {
        clear();
        pair_.deviceUDID = iphone_.udid();
        pair_.appBundleID = PluggedIPhone::bundleId;
        pair_.remoteFolderPath = u"/Sync"_s;
        pair_.localFolderPath = here_.path(u"mac"_s);
    }

    void clear() {
        QDir(here_.path(u"mac"_s)).removeRecursively();
        QDir(iphone_.disk.path(iphone_.inDocuments(u"Sync"_s))).removeRecursively();
        here_.makeFolder(u"mac"_s);
        iphone_.disk.makeFolder(iphone_.inDocuments(u"Sync"_s));
    }
    void here(const QString& path, const QByteArray& content) {
        here_.write(u"mac/"_s + path, content);
    }
    void onPhone(const QString& path, const QByteArray& content) {
        iphone_.write(u"Sync/"_s + path, content);
    }
    static Files below(const QString& folder) {
        Files files;
        QDirIterator walk(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (walk.hasNext()) {
            QFile file(walk.next());
            if (walk.fileName() != SyncManifest::fileName && file.open(QIODevice::ReadOnly))
                files[QDir(folder).relativeFilePath(file.fileName())] = file.readAll();
        }
        return files;
    }
    [[nodiscard]] Files hereFiles() const {
        return below(pair_.localFolderPath);
    }
    [[nodiscard]] Files phoneFiles() const {
        return below(iphone_.disk.path(iphone_.inDocuments(u"Sync"_s)));
    }
    SyncReport run() {
        DiskSyncFolder folder(pair_.localFolderPath);
        iOSSyncBackend backend(iphone_.open(), pair_.deviceUDID, {});
        SyncRunEvents events;
        events.ask = [](const SyncQuestion&) { return true; };
        events.status = [this](const QString&) {
            EXPECT_TRUE(BusyPhones::shared().isBusy(iphone_.udid())) << "no poll may come between";
        };
        return SyncRun({pair_, u"HOST"_s, u"Desk"_s, folder, backend,
                        [] { return QDateTime::currentDateTime(); }},
                       events, {})
            .run();
    }
    /// A further run has nothing to do and opens no file of the phone but the manifest.
    void expectQuietRun() {
        iphone_.phone.log().clear();
        const SyncReport report = run();
        EXPECT_FALSE(report.hasChanges()) << report.summary().toStdString();
        QStringList opened;
        for (const VirtualIPhoneRequest& request : iphone_.phone.log().requests())
            if (request.request == u"afc.fileOpen"_s &&
                !request.detail.contains(QLatin1StringView(".tessary-part-")))
                opened.append(request.detail.section(u'/', -1));
        EXPECT_THAT(opened, ElementsAre(SyncManifest::fileName));
    }

    TemporaryFolder here_;
    PluggedIPhone iphone_;
    SyncPair pair_;
};

TEST_F(SyncIPhoneTest, everyModeCopiesItsWayAndASecondRunIsQuiet) {
    for (const SyncMode mode : allSyncModes) {
        SCOPED_TRACE(rawValue(mode).toStdString());
        clear();
        pair_.syncMode = mode;
        here(u"deep/er/it's.txt"_s, QByteArray(3'000'000, 'h'));
        here(u"empty"_s, {});
        onPhone(u"photos/1.heic"_s, QByteArray(70'000, 'p'));
        const SyncReport report = run();
        EXPECT_THAT(report.skipped, IsEmpty());
        EXPECT_EQ(report.uploaded.size(), mode == SyncMode::toMac ? 0 : 2);
        EXPECT_EQ(report.downloaded.size(), mode == SyncMode::toiPhone ? 0 : 1);
        if (mode == SyncMode::biDirectional) {
            EXPECT_EQ(hereFiles(), phoneFiles());
        }
        expectQuietRun();
    }
}

TEST_F(SyncIPhoneTest, editsConflictsDeletionsAndMovesGoAcross) {
    here(u"edited"_s, "1");
    here(u"gone"_s, "2");
    (void)run();
    here(u"edited"_s, "edited");
    QFile::remove(here_.path(u"mac/gone"_s));
    here(u"both"_s, "mine");
    onPhone(u"both"_s, "theirs");
    const SyncReport report = run();
    EXPECT_THAT(report.uploaded, ElementsAre(u"edited"_s));
    EXPECT_THAT(report.deleted, ElementsAre(u"gone"_s));
    EXPECT_EQ(report.conflicts.size(), 1);
    EXPECT_EQ(hereFiles(), phoneFiles());
    EXPECT_EQ(hereFiles().size(), 3U);
    expectQuietRun();

    pair_.syncMode = SyncMode::toMac;
    pair_.moveFilesEnabled = true;
    onPhone(u"d/new"_s, "new");
    EXPECT_EQ(run().moved.size(), 4);
    EXPECT_THAT(phoneFiles(), IsEmpty());
    EXPECT_FALSE(iphone_.has(u"Sync/d"_s));
    EXPECT_EQ(hereFiles().size(), 4U);
}

TEST_F(SyncIPhoneTest, linksAreNamedAndFullFoldersStay) {
    onPhone(u"full/a"_s, "a");
    QFile::link(u"a"_s, iphone_.disk.path(iphone_.inDocuments(u"Sync/full/link"_s)));
    const SyncReport report = run();
    EXPECT_THAT(report.downloaded, ElementsAre(u"full/a"_s));
    ASSERT_EQ(report.skipped.size(), 1U);
    EXPECT_EQ(report.skipped.front().path, u"full/link"_s);

    const auto client = iphone_.open();
    const QString documents = client->workingRootPath();
    const TransferOutcome outcome =
        client->downloadDirectory(documents + u"/Sync/full"_s, here_.path(u"copy"_s));
    EXPECT_EQ(outcome.skipped.size(), 1U);
    EXPECT_EQ(outcome.progress.completedFiles, 1);
    EXPECT_THROW(client->removeEntry(documents + u"/Sync/full"_s), TessaryError);
    EXPECT_TRUE(iphone_.has(u"Sync/full/a"_s));
}

TEST_F(SyncIPhoneTest, touchedFilesAreSampledAndNotCopied) {
    here(u"a"_s, QByteArray(10'000, 'a'));
    (void)run();
    QFile file(here_.path(u"mac/a"_s));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTime().addDays(1),
                                 QFileDevice::FileModificationTime));
    file.close();
    iphone_.phone.log().clear();
    EXPECT_FALSE(run().hasChanges());
    EXPECT_EQ(phoneFiles(), hereFiles());
    expectQuietRun();
}

TEST_F(SyncIPhoneTest, cutConnectionLosesNothing) {
    int broken = 0;
    for (unsigned nth = 1; nth < 40; nth += 4) {
        for (const char* request :
             {"afc.fileWrite", "afc.getFileInfo", "afc.fileOpen", "afc.renamePath"}) {
            SCOPED_TRACE(std::string(request) + " " + std::to_string(nth));
            clear();
            here(u"up"_s, QByteArray(2000, 'u'));
            onPhone(u"down"_s, QByteArray(3000, 'd'));
            here(u"both"_s, "one");
            onPhone(u"both"_s, "another");
            iphone_.faults([&](VirtualIPhoneFaults& faults) {
                faults.requestFault = VirtualIPhoneRequestFault{QString::fromLatin1(request), nth,
                                                                nth % 8 == 1, VirtualCut::close};
            });
            try {
                (void)run();
            } catch (const TessaryError&) {
                ++broken;
            }
            iphone_.faults([](VirtualIPhoneFaults& faults) { faults.requestFault.reset(); });
            (void)run();
            const Files files = hereFiles();
            Files there = phoneFiles(); // what a run left a moment ago stays for some minutes
            std::erase_if(there, [](const auto& file) {
                return file.first.contains(QLatin1StringView(".tessary-part-"));
            });
            EXPECT_EQ(files, there);
            const auto holds = [&](const QByteArray& content) {
                return std::any_of(files.begin(), files.end(),
                                   [&](const auto& file) { return file.second == content; });
            };
            EXPECT_TRUE(holds(QByteArray(2000, 'u')) && holds(QByteArray(3000, 'd')));
            EXPECT_TRUE(holds("one") && holds("another"));
        }
    }
    EXPECT_GT(broken, 5);
}

} // namespace
} // namespace tessary
