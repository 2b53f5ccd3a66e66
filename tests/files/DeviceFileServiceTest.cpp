#include "core/LittleEndian.h"
#include "support/FileServiceFixture.h"

#include <algorithm>
#include <atomic>
#include <limits>
#include <thread>

namespace tessary {
namespace {

using namespace std::chrono_literals;

VirtualAndroidConfig twoStorages() {
    VirtualAndroidConfig config;
    config.serialNumber = QStringLiteral("R58M");
    config.storages.resize(2);
    config.storages[1].description = QStringLiteral("SD card");
    config.storages[1].removable = true;
    return config;
}

/// Sets one variable of the environment for a while.
class Environment {
public:
    Environment(const char* name, const QString& value) : name_(name), before_(qgetenv(name)) {
        qputenv(name, value.toUtf8());
    }
    ~Environment() {
        qputenv(name_, before_);
    }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

private:
    const char* name_;
    const QByteArray before_;
};

class DeviceFileServiceTest : public FileServiceFixture {
protected:
    DeviceFileServiceTest() : FileServiceFixture(twoStorages()) {}
};

TEST_F(DeviceFileServiceTest, listingTellsWhatThePhoneTells) {
    const QString photo = phone().write(QStringLiteral("DCIM/Camera/a.jpg"), "12345");
    phone().disk.makeFolder(QStringLiteral("0/DCIM/Camera/.hidden"));
    const auto items = list("  /storage/emulated/0/DCIM/Camera/ ");
    ASSERT_EQ(items.size(), 2U);
    EXPECT_EQ(items[0].name, QStringLiteral(".hidden"));
    EXPECT_TRUE(items[0].isDirectory);
    EXPECT_EQ(items[0].size, 0);
    EXPECT_EQ(items[1].name, QStringLiteral("a.jpg"));
    EXPECT_EQ(items[1].path, QStringLiteral("/DCIM/Camera/a.jpg"));
    EXPECT_FALSE(items[1].isDirectory);
    EXPECT_EQ(items[1].size, 5);
    EXPECT_TRUE(items[1].handle);
    ASSERT_TRUE(items[1].modifiedDate);
    EXPECT_LE(std::abs(items[1].modifiedDate->secsTo(QFileInfo(photo).lastModified())), 1);
    EXPECT_EQ(list("/DCIM/Camera")[1].id(), QStringLiteral("/sdcard/DCIM/Camera/a.jpg"));
    EXPECT_EQ(listedNames("/sdcard"), QStringList(QStringLiteral("DCIM")));
    EXPECT_TRUE(service_->listDirectory(QStringLiteral("/"), std::nullopt).empty());
    EXPECT_THROW(service_->deleteFile(items[1], std::nullopt), TessaryError);
}

TEST_F(DeviceFileServiceTest, childThatCannotBeReadIsLeftOutOfAListing) {
    for (const char* name : {"a", "b", "c"})
        phone().write(QString::fromLatin1(name), name);
    phone().refuse(MTPOperationCode::getObjectInfo, MTPResponseCode::generalError, false);
    EXPECT_EQ(listedNames("/"), (QStringList{QStringLiteral("b"), QStringLiteral("c")}));
    EXPECT_EQ(listedNames("/").size(), 3);
}

TEST_F(DeviceFileServiceTest, otherStoragesAreReachedByTheirIds) {
    const QString card = QStringLiteral("/storage/%1").arg(PluggedPhone::secondStorage);
    phone().write(QStringLiteral("Music/song"), "internal");
    phone().disk.write(QStringLiteral("1/Music/song"), "card");
    const auto items = service_->listDirectory(card + QStringLiteral("/Music"), phone().info);
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(items[0].path, card + QStringLiteral("/Music/song"));
    EXPECT_NE(items[0].id(), list("/Music")[0].id());
    EXPECT_NE(items[0].id(), list("/storage/emulated/0/Music")[0].id());
    service_->downloadFile(items[0], local_.path(QStringLiteral("song")), phone().info);
    EXPECT_EQ(local_.read(QStringLiteral("song")), "card");
    (void)service_->downloadDirectory(
        service_->itemAt(card + QStringLiteral("/Music"), phone().info), local_.path(),
        phone().info);
    EXPECT_EQ(local_.read(QStringLiteral("Music/song")), "card");

    const QString file = local_.write(QStringLiteral("new"), "new");
    service_->uploadFile(file, card, phone().info);
    service_->createFolder(QStringLiteral("Folder"), card + QStringLiteral("/Music"), phone().info);
    EXPECT_EQ(phone().disk.read(QStringLiteral("1/new")), "new");
    EXPECT_TRUE(phone().disk.has(QStringLiteral("1/Music/Folder")));
    EXPECT_FALSE(phone().disk.has(QStringLiteral("0/new")));
    service_->deleteFile(items[0], phone().info);
    EXPECT_EQ(phone().content(QStringLiteral("Music/song")), "internal");

    const FileItem root = service_->itemAt(card, phone().info);
    EXPECT_EQ(root.name, QStringLiteral("SD card"));
    EXPECT_TRUE(root.isDirectory);
    EXPECT_EQ(item("/").name, QStringLiteral("Internal shared storage"));
}

TEST_F(DeviceFileServiceTest, contentsOfAWholeStorageAreCopiedWithoutItsName) {
    phone().write(QStringLiteral("a"), "a");
    const TransferOutcome outcome = service_->downloadDirectoryContents(
        item("/"), local_.path(QStringLiteral("backup")), phone().info);
    EXPECT_TRUE(outcome.isComplete());
    EXPECT_EQ(local_.read(QStringLiteral("backup/a")), "a");
}

TEST_F(DeviceFileServiceTest, rootIsFoundUnderEitherHandle) {
    using RootListing = VirtualBehaviour::RootListing;
    phone().write(QStringLiteral("A/x"), "x");
    phone().write(QStringLiteral("B/y"), "y");
    for (const RootListing rule : {RootListing::allOnes, RootListing::zero, RootListing::either}) {
        phone().android.behaviour().update(
            [&](VirtualBehaviour& behaviour) { behaviour.rootListing = rule; });
        EXPECT_EQ(listedNames("/"), (QStringList{QStringLiteral("A"), QStringLiteral("B")}));
        EXPECT_EQ(item("/A/x").size, 1);
        service_->createFolder(QStringLiteral("N"), QStringLiteral("/"), phone().info);
        service_->deleteFile(item("/N"), phone().info);
        EXPECT_EQ(phone().names().size(), 2);
    }
}

TEST_F(DeviceFileServiceTest, lockedPhoneShowsNothingAndSaysWhyItTakesNothing) {
    phone().write(QStringLiteral("a"), "a");
    const FileItem known = item("/a");
    const QString file = local_.write(QStringLiteral("new"), "new");
    for (const bool omitsList : {false, true}) {
        phone().android.behaviour().update(
            [&](VirtualBehaviour& behaviour) { behaviour.omitsEmptyStorageList = omitsList; });
        phone().android.setLocked(true);
        EXPECT_TRUE(list("/").empty());
        EXPECT_TRUE(list("/no/such/folder").empty());
        EXPECT_EQ(failureOf([&] { service_->uploadFile(file, QStringLiteral("/"), phone().info); }),
                  QStringLiteral("No MTP storage found for upload"));
        for (const QString& failure :
             {failureOf([&] {
                  service_->createFolder(QStringLiteral("n"), QStringLiteral("/"), phone().info);
              }),
              failureOf([&] { service_->deleteFile(known, phone().info); }), failureOf([&] {
                  service_->downloadFile(known, local_.path(QStringLiteral("a")), phone().info);
              })})
            EXPECT_EQ(failure, QStringLiteral("No storage available"));
        EXPECT_EQ(service_->fetchLiveDeviceInfo(phone().info), (LiveDeviceInfo{80, {}}));
        phone().android.setLocked(false);
        EXPECT_EQ(listedNames("/"), QStringList(QStringLiteral("a")));
    }
    EXPECT_FALSE(local_.has(QStringLiteral("a")));
}

TEST_F(DeviceFileServiceTest, liveFiguresAreThePhonesAndNeverBeyondReason) {
    phone().android.setBattery(57);
    const auto huge = std::numeric_limits<std::uint64_t>::max();
    VirtualStorage card = phone().android.storages()[1];
    card.capacity = 1000;
    card.free = huge;
    phone().android.setStorage(1, card);
    const auto live = service_->fetchLiveDeviceInfo(phone().info);
    ASSERT_TRUE(live);
    EXPECT_EQ(live->battery, 57);
    ASSERT_EQ(live->volumes.size(), 2U);
    EXPECT_EQ(live->volumes[0].id, QString::number(PluggedPhone::firstStorage));
    EXPECT_EQ(live->volumes[0].name, QStringLiteral("Internal shared storage"));
    EXPECT_EQ(live->volumes[0].totalBytes, std::uint64_t{128} << 30);
    EXPECT_EQ(live->volumes[0].freeBytes, std::uint64_t{64} << 30);
    EXPECT_FALSE(live->volumes[0].isSDCard);
    EXPECT_TRUE(live->volumes[1].isSDCard);
    EXPECT_EQ(live->volumes[1].totalBytes, 1000U);
    EXPECT_LE(live->volumes[1].freeBytes, std::uint64_t{std::numeric_limits<qint64>::max()});
    EXPECT_NO_FATAL_FAILURE((void)live->volumes[1].formattedCapacity());
}

TEST_F(DeviceFileServiceTest, liveFiguresThatCannotBeReadAreLeftOut) {
    phone().refuse(MTPOperationCode::getDevicePropValue, MTPResponseCode::operationNotSupported);
    auto live = service_->fetchLiveDeviceInfo(phone().info);
    ASSERT_TRUE(live);
    EXPECT_FALSE(live->battery);
    EXPECT_EQ(live->volumes.size(), 2U);
    phone().fault([](VirtualFaults& faults) { faults.errors.clear(); });

    phone().android.setBattery(200); // percent
    phone().refuse(MTPOperationCode::getStorageInfo, MTPResponseCode::storeNotAvailable, false);
    live = service_->fetchLiveDeviceInfo(phone().info);
    ASSERT_TRUE(live);
    EXPECT_LE(live->battery.value_or(0), 100);
    ASSERT_EQ(live->volumes.size(), 1U);
    EXPECT_EQ(live->volumes[0].name, QStringLiteral("SD card"));

    phone().android.unplug();
    EXPECT_EQ(service_->fetchLiveDeviceInfo(phone().info), LiveDeviceInfo());
}

TEST_F(DeviceFileServiceTest, pollsDoNotTouchABusyPhone) {
    phone().write(QStringLiteral("f"), QByteArray(3'000'000, 'f'));
    const FileItem file = item("/f");
    phone().android.clearRequestLog();
    service_->downloadFile(
        file, local_.path(QStringLiteral("f")), phone().info,
        [&](qint64, qint64) { EXPECT_FALSE(service_->fetchLiveDeviceInfo(phone().info)); });
    EXPECT_EQ(phone().requests(MTPOperationCode::openSession), 1U);
    EXPECT_EQ(phone().requests(MTPOperationCode::getDevicePropValue), 0U);
    EXPECT_TRUE(service_->fetchLiveDeviceInfo(phone().info));
}

TEST_F(DeviceFileServiceTest, stoppedCallsEndAsCancelled) {
    phone().write(QStringLiteral("A/f"), "f");
    const FileItem file = item("/A/f");
    const FileItem folder = item("/A");
    std::stop_source stop;
    stop.request_stop();
    const std::stop_token stopped = stop.get_token();
    const DeviceInfo& device = phone().info;
    EXPECT_THROW((void)service_->listDirectory(file.path.left(2), device, stopped),
                 CancellationError);
    EXPECT_THROW(
        service_->downloadFile(file, local_.path(QStringLiteral("f")), device, {}, stopped),
        CancellationError);
    EXPECT_THROW((void)service_->downloadDirectory(folder, local_.path(), device, {}, stopped),
                 CancellationError);
    EXPECT_THROW(service_->deleteFile(file, device, stopped), CancellationError);
    EXPECT_TRUE(local_.names().isEmpty());
    EXPECT_EQ(phone().content(QStringLiteral("A/f")), "f");
}

TEST_F(DeviceFileServiceTest, callsFromManyThreadsTakeTurns) {
    for (int n = 0; n < 10; ++n)
        phone().write(QStringLiteral("D/%1").arg(n), QByteArray(1000, 'd'));
    const FileItem folder = item("/D");
    std::atomic<int> failures = 0;
    {
        std::vector<std::jthread> threads;
        for (int n = 0; n < 6; ++n)
            threads.emplace_back([&, n] {
                try {
                    for (int round = 0; round < 5; ++round) {
                        const QString name = QStringLiteral("%1-%2").arg(n).arg(round);
                        if (n % 3 == 0) {
                            (void)service_->downloadDirectoryContents(folder, local_.path(name),
                                                                      phone().info);
                        } else if (n % 3 == 1) {
                            service_->createFolder(name, QStringLiteral("/"), phone().info);
                            (void)service_->fetchLiveDeviceInfo(phone().info);
                        } else {
                            failures += list("/D").size() == 10 ? 0 : 1;
                        }
                    }
                } catch (const std::exception& error) {
                    ADD_FAILURE() << error.what();
                }
            });
    }
    EXPECT_EQ(failures, 0);
    EXPECT_EQ(phone().names().size(), 11);
    EXPECT_EQ(local_.names().size(), 10);
}

TEST_F(DeviceFileServiceTest, eachOperationOpensOneSessionAndClosesIt) {
    phone().write(QStringLiteral("A/f"), "f");
    phone().write(QStringLiteral("B/g"), "g");
    const QString file = local_.write(QStringLiteral("new"), "n");
    const DeviceInfo& device = phone().info;
    const FileItem f = item("/A/f");
    const std::pair<const char*, std::function<void()>> operations[] = {
        {"list", [&] { (void)list("/A"); }},
        {"item", [&] { (void)item("/A/f"); }},
        {"download", [&] { service_->downloadFile(f, local_.path(QStringLiteral("f")), device); }},
        {"upload", [&] { service_->uploadFile(file, QStringLiteral("/A"), device); }},
        {"create", [&] { service_->createFolder(QStringLiteral("N"), f.path.left(2), device); }},
        {"rename", [&] { service_->renameItem(f, QStringLiteral("h"), device); }},
        {"move", [&] { service_->moveItem(item("/A/h"), QStringLiteral("/B"), device); }},
        {"delete", [&] { service_->deleteFile(item("/B/h"), device); }},
        {"live", [&] { (void)service_->fetchLiveDeviceInfo(device); }},
    };
    for (const auto& [name, run] : operations) {
        phone().android.clearRequestLog();
        EXPECT_NO_THROW(run()) << name;
        const bool asksForItem = name == std::string("move") || name == std::string("delete");
        EXPECT_EQ(phone().requests(MTPOperationCode::openSession), asksForItem ? 2U : 1U) << name;
        EXPECT_EQ(phone().requests(MTPOperationCode::closeSession),
                  phone().requests(MTPOperationCode::openSession))
            << name;
    }
}

TEST_F(DeviceFileServiceTest, stagedCopyIsTheItemsOwnAndIsMadeOnce) {
    const Environment temporary("TMPDIR", local_.makeFolder(QStringLiteral("tmp")));
    DeviceFileService service(bus_, processes_);
    phone().write(QStringLiteral("A/x.txt"), "A");
    phone().write(QStringLiteral("B/x.txt"), "B");
    const FileItem inA = item("/A/x.txt");
    const FileItem inB = item("/B/x.txt");
    FileItem later = inA;
    later.modifiedDate = inA.modifiedDateOrEpoch().addSecs(60);
    FileItem longer = inA;
    longer.size = 2;

    const QString a = service.stageItemForDrag(inA, phone().info);
    const QString b = service.stageItemForDrag(inB, phone().info);
    EXPECT_TRUE(a.startsWith(local_.path(QStringLiteral("tmp/TessaryAndroidStaging/"))));
    for (const QString& path : {a, b})
        EXPECT_EQ(QFileInfo(path).fileName(), QStringLiteral("x.txt"));
    const auto contentOf = [](const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    EXPECT_EQ(contentOf(a), "A");
    EXPECT_EQ(contentOf(b), "B");
    EXPECT_NE(service.stageItemForDrag(later, phone().info), a);
    EXPECT_NE(service.stageItemForDrag(longer, phone().info), a);
    DeviceInfo elsewhere = phone().info;
    elsewhere.udid = QStringLiteral("other");
    EXPECT_NE(service.stageItemForDrag(inA, elsewhere), a);

    phone().android.clearRequestLog();
    EXPECT_EQ(service.stageItemForDrag(inA, phone().info), a);
    EXPECT_EQ(phone().android.requestCount(), 0U);
    EXPECT_FALSE(QFileInfo(local_.path(QStringLiteral("tmp/TessaryAndroidStaging")))
                     .permission(QFileDevice::ReadGroup | QFileDevice::ReadOther));
}

TEST_F(DeviceFileServiceTest, stagingReturnsInTimeAndEndsWithTheService) {
    const Environment temporary("TMPDIR", local_.makeFolder(QStringLiteral("tmp")));
    phone().write(QStringLiteral("big"), QByteArray(30'000'000, 'b'));
    const FileItem big = item("/big");
    phone().fault([](VirtualFaults& faults) { faults.megabytesPerSecond = 1; });
    const auto start = std::chrono::steady_clock::now();
    QString path;
    {
        DeviceFileService service(bus_, processes_);
        path = service.stageItemForDrag(big, phone().info);
        const auto waited = std::chrono::steady_clock::now() - start;
        EXPECT_GE(waited, 1900ms);
        EXPECT_LT(waited, 10s);
        EXPECT_FALSE(QFileInfo::exists(path));
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, 20s);
    EXPECT_FALSE(QFileInfo::exists(path));
    FileItem evil = big;
    evil.name = QStringLiteral("..");
    EXPECT_THROW((void)service_->stageItemForDrag(evil, phone().info), TessaryError);
}

TEST_F(DeviceFileServiceTest, conflictingProgramsAreLookedForAndEndedByExactCommands) {
    using Outcome = ProcessResult::Outcome;
    const QString bin = QStringLiteral("/usr/bin");
    processes_.setResult(Outcome::exited, 0);
    EXPECT_TRUE(service_->isConflictingAppRunning());
    processes_.setResult(Outcome::exited, 1);
    EXPECT_FALSE(service_->isConflictingAppRunning());
    for (const Outcome outcome : {Outcome::notStarted, Outcome::timedOut, Outcome::crashed}) {
        processes_.setResult(outcome);
        EXPECT_FALSE(service_->isConflictingAppRunning());
    }
    for (const QStringList& call : processes_.calls())
        EXPECT_EQ(call, (QStringList{bin + QStringLiteral("/pgrep"), QStringLiteral("-if"),
                                     QStringLiteral("Android File Transfer|OpenMTP")}));

    const QString adb =
        local_.write(QStringLiteral("home/Library/Android/sdk/platform-tools/adb"), "#!/bin/sh\n");
    const Environment home("HOME", local_.path(QStringLiteral("home")));
    EXPECT_NE(service_->findAdbBinary(), adb) << "it is not executable yet";
    QFile::setPermissions(adb, QFileDevice::ReadOwner | QFileDevice::ExeOwner);
    EXPECT_EQ(service_->findAdbBinary(), adb);
    const std::size_t before = processes_.calls().size();
    service_->killConflictingAgents();
    auto calls = processes_.calls();
    calls.erase(calls.begin(), calls.begin() + static_cast<std::ptrdiff_t>(before));
    const QString pkill = bin + QStringLiteral("/pkill");
    EXPECT_EQ(calls,
              (std::vector<QStringList>{
                  {pkill, QStringLiteral("-9"), QStringLiteral("-if"),
                   QStringLiteral("Android File Transfer")},
                  {pkill, QStringLiteral("-9"), QStringLiteral("-if"), QStringLiteral("OpenMTP")},
                  {pkill, QStringLiteral("-9"), QStringLiteral("-x"), QStringLiteral("ptpcamerad")},
                  {pkill, QStringLiteral("-x"),
                   QStringLiteral("gvfsd-mtp|gvfsd-gphoto2|kiod[56]|(simple-|j|go-)?mtpfs")},
                  {adb, QStringLiteral("kill-server")}}));
}

TEST_F(DeviceFileServiceTest, programsThatHoldAPhoneAreNamed) {
    bus_.setProgramsHolding(QStringLiteral("1-1"), {QStringLiteral("gvfsd-mtp")});
    EXPECT_EQ(service_->programsHolding(phone().info), QStringList(QStringLiteral("gvfsd-mtp")));
    phone().android.unplug();
    EXPECT_TRUE(service_->programsHolding(phone().info).isEmpty());
}

} // namespace
} // namespace tessary
