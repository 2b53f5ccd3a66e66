#include "support/FileServiceFixture.h"

#include <limits>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class DeviceFileServiceTest : public FileServiceFixture {
protected:
    DeviceFileServiceTest() : FileServiceFixture(twoStorages()) {}
    ~DeviceFileServiceTest() override {
        qputenv("TMPDIR", temporaryBefore_);
    }
    /// Staged copies of this test go here.
    QString useStaging() {
        const QString folder = local_.makeFolder(u"tmp"_s);
        qputenv("TMPDIR", folder.toUtf8());
        return folder;
    }

private:
    const QByteArray temporaryBefore_ = qgetenv("TMPDIR");
};

TEST_F(DeviceFileServiceTest, listingTellsWhatThePhoneTells) {
    const QString photo = phone().write(u"DCIM/Camera/a.jpg"_s, "12345");
    phone().disk.makeFolder(u"0/DCIM/Camera/.hidden"_s);
    const auto items = list("  /storage/emulated/0/DCIM/Camera/ ");
    ASSERT_EQ(items.size(), 2U);
    EXPECT_EQ(items[0].name, u".hidden"_s);
    EXPECT_TRUE(items[0].isDirectory);
    EXPECT_EQ(items[1].path, u"/DCIM/Camera/a.jpg"_s);
    EXPECT_FALSE(items[1].isDirectory);
    EXPECT_EQ(items[1].size, 5);
    ASSERT_TRUE(items[1].modifiedDate);
    EXPECT_LE(std::abs(items[1].modifiedDate->secsTo(QFileInfo(photo).lastModified())), 1);
    EXPECT_THROW(service_->deleteFile(items[1], std::nullopt), TessaryError);
}

TEST_F(DeviceFileServiceTest, otherStoragesAreReachedByTheirIds) {
    const QString card = u"/storage/%1"_s.arg(PluggedPhone::secondStorage);
    phone().write(u"Music/song"_s, "internal");
    phone().disk.write(u"1/Music/song"_s, "card");
    const auto items = service_->listDirectory(card + u"/Music"_s, phone().info);
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(items[0].path, card + u"/Music/song"_s);
    EXPECT_NE(items[0].id(), list("/Music")[0].id());
    (void)service_->downloadDirectoryContents(service_->itemAt(card, phone().info), local_.path(),
                                              phone().info);
    EXPECT_EQ(local_.read(u"Music/song"_s), "card");

    service_->uploadFile(local_.write(u"new"_s, "new"), card, phone().info);
    service_->createFolder(u"Folder"_s, card + u"/Music"_s, phone().info);
    EXPECT_EQ(phone().disk.read(u"1/new"_s), "new");
    EXPECT_TRUE(phone().disk.has(u"1/Music/Folder"_s));
    EXPECT_FALSE(phone().disk.has(u"0/new"_s));
    service_->deleteFile(items[0], phone().info);
    EXPECT_EQ(phone().content(u"Music/song"_s), "internal");
}

TEST_F(DeviceFileServiceTest, rootIsFoundUnderEitherHandle) {
    using RootListing = VirtualBehaviour::RootListing;
    phone().write(u"A/x"_s, "x");
    phone().write(u"B/y"_s, "y");
    for (const RootListing rule : {RootListing::allOnes, RootListing::zero, RootListing::either}) {
        phone().behave([&](VirtualBehaviour& behaviour) { behaviour.rootListing = rule; });
        EXPECT_EQ(listedNames("/"), (QStringList{u"A"_s, u"B"_s}));
        EXPECT_EQ(item("/A/x").size, 1);
        service_->createFolder(u"N"_s, u"/"_s, phone().info);
        service_->deleteFile(item("/N"), phone().info);
        EXPECT_EQ(phone().names().size(), 2);
    }
}

TEST_F(DeviceFileServiceTest, lockedPhoneShowsNothingAndSaysWhyItTakesNothing) {
    phone().write(u"a"_s, "a");
    const FileItem known = item("/a");
    const QString file = local_.write(u"new"_s, "new");
    const DeviceInfo& device = phone().info;
    for (const bool omitsList : {false, true}) {
        phone().behave([&](VirtualBehaviour& b) { b.omitsEmptyStorageList = omitsList; });
        phone().android.setLocked(true);
        EXPECT_TRUE(list("/").empty());
        EXPECT_EQ(failureOf([&] { service_->uploadFile(file, u"/"_s, device); }),
                  u"No MTP storage found for upload"_s);
        EXPECT_EQ(failureOf([&] { service_->createFolder(u"n"_s, u"/"_s, device); }),
                  u"No storage available"_s);
        EXPECT_EQ(failureOf([&] { service_->deleteFile(known, device); }),
                  u"No storage available"_s);
        EXPECT_EQ(service_->fetchLiveDeviceInfo(device), (LiveDeviceInfo{80, {}}));
        phone().android.setLocked(false);
        EXPECT_EQ(listedNames("/"), QStringList(u"a"_s));
    }
}

TEST_F(DeviceFileServiceTest, liveFiguresAreWithinReasonOrLeftOut) {
    VirtualStorage card = phone().android.storages()[1];
    card.capacity = 1000;
    card.free = std::numeric_limits<std::uint64_t>::max();
    phone().android.setStorage(1, card);
    auto live = service_->fetchLiveDeviceInfo(phone().info);
    ASSERT_TRUE(live);
    EXPECT_EQ(live->battery, 80);
    ASSERT_EQ(live->volumes.size(), 2U);
    EXPECT_EQ(live->volumes[0].totalBytes, std::uint64_t{128} << 30);
    EXPECT_EQ(live->volumes[0].freeBytes, std::uint64_t{64} << 30);
    EXPECT_TRUE(live->volumes[1].isSDCard);
    EXPECT_LE(live->volumes[1].freeBytes, std::uint64_t{std::numeric_limits<qint64>::max()});

    phone().android.setBattery(200); // percent
    phone().refuse(MTPOperationCode::getStorageInfo, MTPResponseCode::storeNotAvailable, false);
    live = service_->fetchLiveDeviceInfo(phone().info);
    ASSERT_TRUE(live);
    EXPECT_LE(live->battery.value_or(0), 100);
    EXPECT_EQ(live->volumes.size(), 1U);
    phone().refuse(MTPOperationCode::getDevicePropValue, MTPResponseCode::operationNotSupported);
    EXPECT_FALSE(service_->fetchLiveDeviceInfo(phone().info)->battery);
    phone().android.unplug();
    EXPECT_EQ(service_->fetchLiveDeviceInfo(phone().info), LiveDeviceInfo());
}

TEST_F(DeviceFileServiceTest, pollsDoNotTouchABusyPhone) {
    phone().write(u"f"_s, QByteArray(3'000'000, 'f'));
    const FileItem file = item("/f");
    phone().android.clearRequestLog();
    service_->downloadFile(file, local_.path(u"f"_s), phone().info, [&](qint64, qint64) {
        EXPECT_FALSE(service_->fetchLiveDeviceInfo(phone().info));
    });
    EXPECT_EQ(phone().requests(MTPOperationCode::openSession), 1U);
    EXPECT_EQ(phone().requests(MTPOperationCode::closeSession), 1U);
    EXPECT_EQ(phone().requests(MTPOperationCode::getDevicePropValue), 0U);
    EXPECT_TRUE(service_->fetchLiveDeviceInfo(phone().info));
}

TEST_F(DeviceFileServiceTest, stagedCopyIsTheItemsOwnAndIsMadeOnce) {
    const QDir staging(useStaging());
    DeviceFileService service(bus_, processes_);
    phone().write(u"A/x.txt"_s, "A");
    phone().write(u"B/x.txt"_s, "B");
    const FileItem inA = item("/A/x.txt");
    FileItem later = inA;
    later.modifiedDate = inA.modifiedDateOrEpoch().addSecs(60);
    FileItem longer = inA;
    longer.size = 2;
    DeviceInfo elsewhere = phone().info;
    elsewhere.udid = u"other"_s;

    const QString a = service.stageItemForDrag(inA, phone().info);
    const QString b = service.stageItemForDrag(item("/B/x.txt"), phone().info);
    EXPECT_EQ(local_.read(u"tmp/"_s + staging.relativeFilePath(a)), "A");
    EXPECT_EQ(local_.read(u"tmp/"_s + staging.relativeFilePath(b)), "B");
    EXPECT_EQ(QFileInfo(a).fileName(), u"x.txt"_s);
    for (const FileItem& other : {later, longer})
        EXPECT_NE(service.stageItemForDrag(other, phone().info), a);
    EXPECT_NE(service.stageItemForDrag(inA, elsewhere), a);
    phone().android.clearRequestLog();
    EXPECT_EQ(service.stageItemForDrag(inA, phone().info), a);
    EXPECT_EQ(phone().android.requestCount(), 0U);
    EXPECT_FALSE(QFileInfo(local_.path(u"tmp/TessaryAndroidStaging"_s))
                     .permission(QFileDevice::ReadGroup | QFileDevice::ReadOther));
}

TEST_F(DeviceFileServiceTest, stagingReturnsInTimeAndEndsWithTheDragOrTheService) {
    (void)useStaging();
    phone().write(u"big"_s, QByteArray(30'000'000, 'b'));
    const FileItem big = item("/big");
    phone().fault([](VirtualFaults& faults) { faults.megabytesPerSecond = 1; });
    const auto start = std::chrono::steady_clock::now();
    QString path;
    {
        DeviceFileService service(bus_, processes_);
        std::stop_source drag;
        path = service.stageItemForDrag(big, phone().info, drag.get_token());
        const auto waited = std::chrono::steady_clock::now() - start;
        EXPECT_GE(waited, 1900ms);
        EXPECT_LT(waited, 10s);
        EXPECT_FALSE(QFileInfo::exists(path));
        drag.request_stop(); // the copy ends, and others may use the phone
        while (!service.fetchLiveDeviceInfo(phone().info) &&
               std::chrono::steady_clock::now() - start < 15s)
            std::this_thread::sleep_for(20ms);
        EXPECT_TRUE(service.fetchLiveDeviceInfo(phone().info));
        (void)service.stageItemForDrag(big, phone().info);
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, 20s);
    EXPECT_FALSE(QFileInfo::exists(path));
    FileItem evil = big;
    evil.name = u".."_s;
    EXPECT_THROW((void)service_->stageItemForDrag(evil, phone().info), TessaryError);
}

TEST_F(DeviceFileServiceTest, conflictingProgramsAreLookedForAndEndedByExactCommands) {
    using Outcome = ProcessResult::Outcome;
    for (const Outcome outcome : {Outcome::notStarted, Outcome::timedOut, Outcome::crashed}) {
        processes_.setResult(outcome);
        EXPECT_FALSE(service_->isConflictingAppRunning());
    }
    service_->killConflictingAgents();
    QStringList commands;
    for (const QStringList& call : processes_.calls())
        commands.append(call.join(u' '));
    for (const char* command :
         {"/usr/bin/pgrep -if Android File Transfer|OpenMTP",
          "/usr/bin/pkill -9 -if Android File Transfer", "/usr/bin/pkill -9 -if OpenMTP",
          "/usr/bin/pkill -9 -x ptpcamerad",
          "/usr/bin/pkill -x gvfsd-mtp|gvfsd-gphoto2|kiod[56]|(simple-|j|go-)?mtpfs"})
        EXPECT_TRUE(commands.contains(QLatin1StringView(command))) << command;
}

} // namespace
} // namespace tessary
