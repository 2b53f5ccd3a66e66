// What every way to a phone must do, over MTP, the real adb and the real library for iPhones.

#include "support/ADBFixture.h"
#include "support/Application.h"
#include "support/PluggedIPhone.h"
#include "oldsync/SyncFolders.h"
#include "sync/old/run/IPhoneSyncBackend.h"

#include <gmock/gmock.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

class SyncByADB : public ADBFixture, protected SyncFolders {
protected:
    SyncByADB() : SyncFolders(serial(), SyncPair::deviceStorage, u"/sdcard/Sync"_s) {
        device_.platform = DevicePlatform::android;
        device_.protocolMode = ProtocolMode::adbTurbo;
        device_.udid = serial();
        device_.serialNumber = serial();
        clear();
    }
    QString phoneFolder() override {
        return disk_.path(u"phone/Sync"_s);
    }
    std::unique_ptr<SyncDeviceBackend> connect(const std::stop_token& stop) override {
        return std::make_unique<AndroidSyncBackend>(service_, device_, stop);
    }

    VirtualUSBBus bus_;
    DeviceFileService service_{bus_, runner_, QStringList{realADB()}};
    DeviceInfo device_;
};

class SyncByAFC : public Application, public testing::Test, protected SyncFolders {
protected:
    SyncByAFC() : SyncFolders(VirtualIPhoneConfig().udid, PluggedIPhone::bundleId, u"/Sync"_s) {
        clear();
    }
    QString phoneFolder() override {
        return iphone_.disk.path(iphone_.inDocuments(u"Sync"_s));
    }
    std::unique_ptr<SyncDeviceBackend> connect(const std::stop_token& stop) override {
        return std::make_unique<IPhoneSyncBackend>(iphone_.open(), pair_.deviceUDID, stop);
    }
    void duringRun() override {
        EXPECT_TRUE(BusyPhones::shared().isBusy(iphone_.udid())) << "no poll may come between";
    }
    void beforeQuietRun() override {
        iphone_.phone.log().clear();
    }
    /// No file of the phone was opened but the manifest.
    void afterQuietRun() override {
        QStringList opened;
        for (const VirtualIPhoneRequest& request : iphone_.phone.log().requests())
            if (request.request == u"afc.fileOpen"_s &&
                !request.detail.contains(QLatin1StringView(".tessary-part-")))
                opened.append(request.detail.section(u'/', -1));
        EXPECT_THAT(opened, ElementsAre(SyncManifest::fileName));
    }

    PluggedIPhone iphone_;
};

template <typename Way>
class SyncBackendsTest : public Way {};

using Ways = testing::Types<SyncByMTP, SyncByADB, SyncByAFC>;
TYPED_TEST_SUITE(SyncBackendsTest, Ways, );

TYPED_TEST(SyncBackendsTest, everyModeCopiesItsWayAndASecondRunIsQuiet) {
    for (const SyncMode mode : allSyncModes) {
        SCOPED_TRACE(rawValue(mode).toStdString());
        this->clear();
        this->pair_.syncMode = mode;
        this->here(u"deep/er/it's.txt"_s, QByteArray(300'000, 'h'));
        this->here(u"empty"_s, {});
        this->here(u"😀 snow.txt"_s, "unicode");
        this->onPhone(u"photos/1.heic"_s, QByteArray(70'000, 'p'));
        const auto hereBefore = this->hereFiles();
        const auto phoneBefore = this->phoneFiles();
        SyncProgress last;
        this->onProgress_ = [&](const SyncProgress& progress) { last = progress; };
        const SyncReport report = this->run();
        EXPECT_THAT(report.skipped, IsEmpty());
        EXPECT_EQ(report.uploaded.size(), mode == SyncMode::toMac ? 0 : 3);
        EXPECT_EQ(report.downloaded.size(), mode == SyncMode::toiPhone ? 0 : 1);
        EXPECT_EQ(last.completedBytes, last.totalBytes);
        auto both = hereBefore;
        both.insert(phoneBefore.begin(), phoneBefore.end());
        EXPECT_EQ(this->hereFiles(), mode == SyncMode::toiPhone ? hereBefore : both);
        EXPECT_EQ(this->phoneFiles(), mode == SyncMode::toMac ? phoneBefore : both);
        this->expectQuietRun();
    }
}

TYPED_TEST(SyncBackendsTest, editsConflictsDeletionsAndMovesGoAcross) {
    this->answer_ = true;
    this->here(u"edited"_s, "1");
    this->here(u"gone"_s, "2");
    this->here(u"dir/gone there"_s, "3");
    (void)this->run();
    this->here(u"edited"_s, "edited");
    this->removeHere(u"gone"_s);
    QFile::remove(this->phoneFolder() + u"/dir/gone there"_s);
    this->here(u"both"_s, "mine");
    this->onPhone(u"both"_s, "theirs");
    const SyncReport report = this->run();
    EXPECT_THAT(report.uploaded, ElementsAre(u"edited"_s));
    EXPECT_THAT(report.deleted, testing::UnorderedElementsAre(u"gone"_s, u"dir/gone there"_s));
    EXPECT_EQ(report.conflicts.size(), 1);
    EXPECT_EQ(this->hereFiles(), this->phoneFiles());
    EXPECT_EQ(this->hereFiles().size(), 3U);
    EXPECT_TRUE(this->holds("mine") && this->holds("theirs"));
    EXPECT_FALSE(this->computer_.has(u"mac/dir"_s));
    this->expectQuietRun();

    this->pair_.syncMode = SyncMode::toMac;
    this->pair_.moveFilesEnabled = true;
    this->onPhone(u"deep/er/new"_s, "new");
    EXPECT_EQ(this->run().moved.size(), 4);
    EXPECT_THAT(this->phoneFiles(), IsEmpty());
    EXPECT_FALSE(QFileInfo::exists(this->phoneFolder() + u"/deep"_s));
    EXPECT_EQ(this->hereFiles().size(), 4U);
    this->pair_.syncMode = SyncMode::toiPhone;
    EXPECT_EQ(this->run().moved.size(), 4);
    EXPECT_THAT(this->hereFiles(), IsEmpty());
    EXPECT_EQ(this->phoneFiles().size(), 4U);
}

TEST_F(SyncByMTP, fullFolderIsNotTakenForAnEmptyOne) {
    onPhone(u"DCIM/new.jpg"_s, "just taken");
    const FileItem folder = item("/Sync/DCIM");
    EXPECT_THROW(service_->deleteEmptyFolder(folder, phone().info), TessaryError);
    EXPECT_EQ(phoneFiles().size(), 1U);
}

TEST_F(SyncByADB, fullFolderIsNotTakenForAnEmptyOne) {
    onPhone(u"full/a"_s, "a");
    const FileItem folder = service_.itemAt(u"/sdcard/Sync/full"_s, device_);
    EXPECT_THROW(service_.deleteEmptyFolder(folder, device_), TessaryError);
    EXPECT_EQ(phoneFiles().size(), 1U);
}

TEST_F(SyncByAFC, linksAreNamedAndFullFoldersStay) {
    onPhone(u"full/a"_s, "a");
    QFile::link(u"a"_s, phoneFolder() + u"/full/link"_s);
    const SyncReport report = run();
    EXPECT_THAT(report.downloaded, ElementsAre(u"full/a"_s));
    ASSERT_EQ(report.skipped.size(), 1U);
    EXPECT_EQ(report.skipped.front().path, u"full/link"_s);

    const auto client = iphone_.open();
    const QString full = client->workingRootPath() + u"/Sync/full"_s;
    const TransferOutcome outcome = client->downloadDirectory(full, computer_.path(u"copy"_s));
    EXPECT_EQ(outcome.skipped.size(), 1U);
    EXPECT_EQ(outcome.progress.completedFiles, 1);
    EXPECT_THROW(client->removeEntry(full), TessaryError);
    EXPECT_TRUE(iphone_.has(u"Sync/full/a"_s));
}

TEST_F(SyncByAFC, touchedFilesAreSampledAndNotCopied) {
    here(u"a"_s, QByteArray(10'000, 'a'));
    (void)run();
    setDate(computer_.path(u"mac/a"_s), QDateTime::currentDateTime().addDays(1));
    EXPECT_FALSE(run().hasChanges());
    EXPECT_EQ(phoneFiles(), hereFiles());
    expectQuietRun();
}

TEST_F(SyncByAFC, cutConnectionLosesNothing) {
    answer_ = true;
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
            EXPECT_EQ(hereFiles(), phoneFilesButLeftovers());
            for (const QByteArray& content : {QByteArray(2000, 'u'), QByteArray(3000, 'd'),
                                              QByteArray("one"), QByteArray("another")})
                EXPECT_TRUE(holds(content)) << content.left(8).constData();
        }
    }
    EXPECT_GT(broken, 5);
}

} // namespace
} // namespace tessary
