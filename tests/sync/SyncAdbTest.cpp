#include "core/TessaryError.h"
#include "files/DeviceFileService.h"
#include "phones/VirtualUsbBus.h"
#include "support/AdbFixture.h"
#include "sync/AndroidSyncBackend.h"
#include "sync/DiskSyncFolder.h"
#include "sync/SyncRun.h"

#include <QDirIterator>
#include <gmock/gmock.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

using Files = std::map<QString, QByteArray>;

/// Runs between a folder of this computer and "/sdcard/Sync" of a virtual phone, by the real adb.
class SyncAdbTest : public AdbFixture {
protected:
    SyncAdbTest() {
        clear();
        device_.platform = DevicePlatform::android;
        device_.protocolMode = ProtocolMode::adbTurbo;
        device_.udid = serial();
        device_.serialNumber = serial();
        pair_.deviceUDID = serial();
        pair_.appBundleID = SyncPair::deviceStorage;
        pair_.remoteFolderPath = u"/sdcard/Sync"_s;
        pair_.localFolderPath = here_.path(u"mac"_s);
    }

    void clear() {
        QDir(here_.path(u"mac"_s)).removeRecursively();
        QDir(disk_.path(u"phone/Sync"_s)).removeRecursively();
        here_.makeFolder(u"mac"_s);
        disk_.makeFolder(u"phone/Sync"_s);
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
    SyncReport run() {
        DiskSyncFolder folder(pair_.localFolderPath);
        AndroidSyncBackend backend(service_, device_, {});
        SyncRunEvents events;
        events.ask = [](const SyncQuestion&) { return true; };
        return SyncRun({pair_, u"HOST"_s, u"Desk"_s, folder, backend,
                        [] { return QDateTime::currentDateTime(); }},
                       events, {})
            .run();
    }

    TemporaryFolder here_;
    VirtualUsbBus bus_;
    DeviceFileService service_{bus_, runner_, QStringList{realAdb()}};
    DeviceInfo device_;
    SyncPair pair_;
};

TEST_F(SyncAdbTest, everyModeCopiesItsWayAndASecondRunIsQuiet) {
    for (const SyncMode mode : allSyncModes) {
        SCOPED_TRACE(rawValue(mode).toStdString());
        clear();
        pair_.syncMode = mode;
        here_.write(u"mac/deep/er/it's.txt"_s, manyBytes(200'000));
        here_.write(u"mac/empty"_s, {});
        write(u"Sync/photos/1.jpg"_s, manyBytes(70'000));
        const SyncReport report = run();
        EXPECT_THAT(report.skipped, IsEmpty());
        EXPECT_EQ(report.uploaded.size(), mode == SyncMode::toMac ? 0 : 2);
        EXPECT_EQ(report.downloaded.size(), mode == SyncMode::toiPhone ? 0 : 1);
        if (mode == SyncMode::biDirectional) {
            EXPECT_EQ(below(pair_.localFolderPath), below(disk_.path(u"phone/Sync"_s)));
        }
        const SyncReport second = run();
        EXPECT_FALSE(second.hasChanges()) << second.summary().toStdString();
    }
}

TEST_F(SyncAdbTest, editsDeletionsConflictsAndMovesGoAcross) {
    here_.write(u"mac/edited"_s, "1");
    here_.write(u"mac/gone"_s, "2");
    (void)run();
    here_.write(u"mac/edited"_s, "edited");
    QFile::remove(here_.path(u"mac/gone"_s));
    here_.write(u"mac/both"_s, "mine");
    write(u"Sync/both"_s, "theirs");
    const SyncReport report = run();
    EXPECT_THAT(report.uploaded, ElementsAre(u"edited"_s));
    EXPECT_THAT(report.deleted, ElementsAre(u"gone"_s));
    EXPECT_EQ(report.conflicts.size(), 1);
    EXPECT_EQ(below(pair_.localFolderPath), below(disk_.path(u"phone/Sync"_s)));

    write(u"Sync/deep/er/moved"_s, "moved");
    pair_.syncMode = SyncMode::toMac;
    pair_.moveFilesEnabled = true;
    EXPECT_EQ(run().moved.size(), 4);
    EXPECT_FALSE(disk_.has(u"phone/Sync/deep"_s));
    write(u"full/a"_s, "a");
    const FileItem full = service_.itemAt(u"/sdcard/full"_s, device_);
    EXPECT_THROW(service_.deleteEmptyFolder(full, device_), TessaryError);
    EXPECT_TRUE(disk_.has(u"phone/full/a"_s));
    EXPECT_THAT(below(disk_.path(u"phone/Sync"_s)), IsEmpty());
}

} // namespace
} // namespace tessary
