#include "devices/DeviceManager.h"
#include "devices/DeviceManagerFixture.h"
#include "files/DeviceFileService.h"

#include <atomic>
#include <semaphore>
#include <thread>

namespace tessary {
namespace {

/// Answers `pgrep` when it is let to, with the exit status that is set.
class LaggingProcessRunner final : public ProcessRunner {
public:
    [[nodiscard]] ProcessResult run(const QString&, const QStringList&,
                                    std::chrono::milliseconds) override {
        ++calls_;
        if (lags_)
            released_.acquire();
        return {ProcessResult::Outcome::exited, isRunning_ ? 0 : 1, {}, {}};
    }

    std::atomic<bool> lags_ = false;
    std::atomic<bool> isRunning_ = false;
    std::atomic<int> calls_ = 0;
    std::counting_semaphore<> released_{0};
};

/// The manager over the real file service and virtual phones.
class DeviceManagerTest : public DeviceManagerFixture {
protected:
    DeviceManagerTest() {
        use(std::make_unique<DeviceManager>(bus_, files_));
    }
    ~DeviceManagerTest() override {
        manager_.reset();
        EXPECT_TRUE(Background::shutDown(60s));
    }

    [[nodiscard]] bool hasDetails(const char* udid) const {
        const auto found = device(udid);
        return found && found->isDataAccessible() && found->batteryLevel;
    }
    static void hang(PluggedPhone& phone, bool hangs) {
        const auto operation = static_cast<std::uint16_t>(MTPOperationCode::openSession);
        phone.fault([&](VirtualFaults& faults) {
            if (hangs)
                faults.hang.insert(operation);
            else
                faults.hang.erase(operation);
        });
    }

    LaggingProcessRunner processes_;
    DeviceFileService files_{bus_, processes_};
};

TEST_F(DeviceManagerTest, attachedPhoneGetsItsDetailsAndADetachedOneGoes) {
    manager_->startListening();
    ASSERT_TRUE(eventually([&] { return rounds_ > 0; }));
    EXPECT_TRUE(udids().isEmpty());
    {
        const PluggedPhone phone(bus_, phoneConfig("A", "1-1"));
        ASSERT_TRUE(eventually([&] { return hasDetails("A"); }));
        EXPECT_EQ(device("A")->batteryLevel, 80);
        EXPECT_EQ(device("A")->volumes.size(), 1U);
        EXPECT_EQ(device("A")->deviceName, QStringLiteral("Google Pixel 7"));
        EXPECT_TRUE(device("A")->formattedStorageSummary());
    }
    // The event tells; a poll would take longer.
    EXPECT_TRUE(eventually([&] { return udids().isEmpty(); }, 1s));
}

TEST_F(DeviceManagerTest, pollsFindWhatNoEventTold) {
    const PluggedPhone phone(bus_, phoneConfig("A", "1-1"));
    refresh(false);
    EXPECT_TRUE(hasDetails("A"));
}

TEST_F(DeviceManagerTest, listIsPublishedOnlyWhenItDiffers) {
    PluggedPhone phone(bus_, phoneConfig("A", "1-1"));
    refresh(true);
    ASSERT_TRUE(hasDetails("A"));
    const int before = changes_;
    for (int n = 0; n < 5; ++n)
        refresh(n % 2 == 0);
    EXPECT_EQ(changes_, before);
    phone.android.setBattery(79);
    refresh(true);
    EXPECT_EQ(changes_, before + 1);
    EXPECT_EQ(device("A")->batteryLevel, 79);
}

TEST_F(DeviceManagerTest, pollsAskOnlyForDetailsThatAreMissing) {
    PluggedPhone phone(bus_, phoneConfig("A", "1-1"));
    refresh(false);
    ASSERT_TRUE(hasDetails("A"));
    phone.android.clearRequestLog();
    for (int n = 0; n < 5; ++n)
        refresh(false);
    EXPECT_EQ(phone.android.requestCount(), 0U);
    refresh(true);
    EXPECT_EQ(phone.requests(MTPOperationCode::openSession), 1U);
}

TEST_F(DeviceManagerTest, storageTimerKeepsFiguresCurrent) {
    PluggedPhone phone(bus_, phoneConfig("A", "1-1"));
    manager_->startListening();
    ASSERT_TRUE(eventually([&] { return hasDetails("A"); }));
    phone.android.setBattery(12);
    EXPECT_TRUE(eventually([&] { return device("A")->batteryLevel == 12; },
                           DeviceManager::storageInterval + 2s));
}

TEST_F(DeviceManagerTest, phoneThatComesBackHasItsDetailsAtOnce) {
    manager_->startListening();
    PluggedPhone phone(bus_, phoneConfig("A", "1-1"));
    ASSERT_TRUE(eventually([&] { return hasDetails("A"); }));
    phone.android.unplug();
    ASSERT_TRUE(eventually([&] { return udids().isEmpty(); }));
    hang(phone, true);
    phone.android.plugInto(bus_);
    ASSERT_TRUE(eventually([&] { return !udids().isEmpty(); }));
    EXPECT_TRUE(hasDetails("A"));
    phone.android.unplug(); // ends the wait for an answer
}

TEST_F(DeviceManagerTest, lockedPhoneShowsItsStorageAtThePollAfterItIsUnlocked) {
    VirtualAndroidConfig config = phoneConfig("A", "1-1");
    config.locked = true;
    PluggedPhone phone(bus_, config);
    refresh(true);
    EXPECT_TRUE(device("A")->isLocked);
    EXPECT_FALSE(device("A")->isDataAccessible());
    EXPECT_EQ(device("A")->batteryLevel, 80);
    EXPECT_FALSE(trouble("A"));

    phone.android.setLocked(false);
    refresh(false);
    EXPECT_FALSE(device("A")->isLocked);
    EXPECT_TRUE(hasDetails("A"));

    phone.android.setLocked(true);
    refresh(true);
    EXPECT_TRUE(device("A")->isLocked);
}

TEST_F(DeviceManagerTest, busyPhoneIsNotAskedAndKeepsItsFigures) {
    PluggedPhone phone(bus_, phoneConfig("A", "1-1"));
    phone.write(QStringLiteral("big"), QByteArray(4'000'000, 'x'));
    refresh(true);
    const DeviceInfo before = *device("A");
    phone.android.setBattery(3);
    phone.fault([](VirtualFaults& faults) { faults.megabytesPerSecond = 8; });
    std::atomic<bool> isCopying = false;
    const TemporaryFolder local;
    std::jthread copy([&] {
        const FileItem item = files_.itemAt(QStringLiteral("/big"), before);
        files_.downloadFile(item, local.path(QStringLiteral("big")), before,
                            [&](qint64, qint64) { isCopying = true; });
        isCopying = false;
    });
    ASSERT_TRUE(eventually([&] { return isCopying.load(); }));
    const std::size_t sessions = phone.requests(MTPOperationCode::openSession);
    refresh(true);
    refresh(true);
    ASSERT_TRUE(isCopying);
    EXPECT_EQ(phone.requests(MTPOperationCode::openSession), sessions);
    EXPECT_TRUE(*device("A") == before);
    EXPECT_FALSE(trouble("A"));
    copy.join();
    refresh(true);
    EXPECT_EQ(device("A")->batteryLevel, 3);
}

TEST_F(DeviceManagerTest, hangingPhoneDelaysNeitherAnotherNorTheMainThread) {
    PluggedPhone silent(bus_, phoneConfig("A", "1-1"));
    hang(silent, true);
    PluggedPhone sound(bus_, phoneConfig("B", "1-2"));
    auto longest = 0ms;
    auto last = std::chrono::steady_clock::now();
    QTimer pulse;
    QObject::connect(&pulse, &QTimer::timeout, [&] {
        const auto now = std::chrono::steady_clock::now();
        longest =
            std::max(longest, std::chrono::duration_cast<std::chrono::milliseconds>(now - last));
        last = now;
    });
    pulse.start(5ms);
    manager_->startListening();
    ASSERT_TRUE(eventually([&] { return hasDetails("B"); }));
    EXPECT_FALSE(hasDetails("A") || trouble("A")) << "B waited until A's time was up";
    sound.android.setBattery(55);
    EXPECT_TRUE(eventually([&] { return device("B")->batteryLevel == 55; }));
    ASSERT_TRUE(eventually([&] { return trouble("A").has_value(); }, 40s));
    EXPECT_EQ(trouble("A")->kind, DeviceTrouble::Kind::notAnswering);
    EXPECT_FALSE(trouble("A")->advice.isEmpty());
    EXPECT_LT(longest, 3s) << "a wait for the phone takes five";

    hang(silent, false);
    silent.android.unplug();
    silent.android.plugInto(bus_);
    EXPECT_TRUE(eventually([&] { return hasDetails("A") && !trouble("A"); }));
}

TEST_F(DeviceManagerTest, troubleTellsWhoHoldsThePhoneAndGoesWithIt) {
    const QString location = QStringLiteral("1-1");
    PluggedPhone phone(bus_, phoneConfig("A", "1-1"));
    refresh(true);
    const DeviceInfo before = *device("A");
    bus_.setProgramsHolding(location, {QStringLiteral("gvfsd-mtp")});
    bus_.setOpenFaults(location, {usb::exclusiveAccess, usb::exclusiveAccess, usb::exclusiveAccess,
                                  usb::exclusiveAccess});
    refresh(true);
    ASSERT_TRUE(trouble("A"));
    EXPECT_EQ(trouble("A")->kind, DeviceTrouble::Kind::heldByProgram);
    EXPECT_EQ(trouble("A")->programs, QStringList{QStringLiteral("gvfsd-mtp")});
    EXPECT_TRUE(trouble("A")->message.contains(QStringLiteral("gvfsd-mtp")));
    EXPECT_TRUE(*device("A") == before) << "the last figures stay";
    EXPECT_EQ(troubleChanges_, 1);
    refresh(true);
    EXPECT_EQ(troubleChanges_, 1);

    bus_.setOpenFaults(location, {});
    refresh(true);
    EXPECT_FALSE(trouble("A"));
    EXPECT_EQ(troubleChanges_, 2);
}

TEST_F(DeviceManagerTest, phoneThatThisUserMayNotOpenIsInTroubleWhileItIsThere) {
    PluggedPhone phone(bus_, phoneConfig("A", "1-1"));
    bus_.setOpenFaults(QStringLiteral("1-1"), {usb::notPermitted, usb::notPermitted, {}, {}});
    refresh(false);
    ASSERT_TRUE(trouble("A"));
    EXPECT_EQ(trouble("A")->kind, DeviceTrouble::Kind::notPermitted);
    EXPECT_FALSE(device("A")->isLocked);
    phone.android.unplug();
    refresh(false);
    EXPECT_FALSE(trouble("A"));
}

TEST_F(DeviceManagerTest, phonesWithoutASerialNumberHaveRowsAndFiguresOfTheirOwn) {
    VirtualAndroidConfig config = phoneConfig("", "1-1");
    config.battery = 11;
    auto first = std::make_unique<PluggedPhone>(bus_, config);
    config = phoneConfig("", "1-2");
    config.battery = 22;
    const PluggedPhone second(bus_, config);
    refresh(true);
    const char* firstUdid = "USB-6353-20193";
    const char* secondUdid = "USB-6353-20193-1-2";
    ASSERT_TRUE(hasDetails(firstUdid) && hasDetails(secondUdid));
    EXPECT_EQ(device(firstUdid)->batteryLevel, 11);
    EXPECT_EQ(device(secondUdid)->batteryLevel, 22);
    first.reset();
    refresh(false);
    EXPECT_EQ(udids(), QStringList{QString::fromUtf8(secondUdid)});
    EXPECT_EQ(device(secondUdid)->batteryLevel, 22);
}

TEST_F(DeviceManagerTest, conflictIsPublishedWhenTheLaggingAnswerComes) {
    processes_.lags_ = true;
    processes_.isRunning_ = true;
    const PluggedPhone phone(bus_, phoneConfig("A", "1-1"));
    for (int n = 0; n < 3; ++n)
        refresh(true);
    EXPECT_TRUE(hasDetails("A")) << "nothing waits for the child";
    EXPECT_FALSE(manager_->hasUSBConflict());
    EXPECT_EQ(processes_.calls_, 1) << "one child at a time";
    processes_.lags_ = false;
    processes_.released_.release();
    EXPECT_TRUE(eventually([&] { return manager_->hasUSBConflict(); }));
    EXPECT_EQ(conflictChanges_, 1);
    processes_.isRunning_ = false;
    refresh(false);
    EXPECT_TRUE(eventually([&] { return !manager_->hasUSBConflict(); }));
    EXPECT_EQ(conflictChanges_, 2);
}

TEST_F(DeviceManagerTest, nothingIsPublishedAfterListeningEnds) {
    PluggedPhone phone(bus_, phoneConfig("A", "1-1"));
    phone.fault([](VirtualFaults& faults) { faults.delayEach = 100ms; });
    manager_->startListening();
    ASSERT_TRUE(eventually([&] { return !udids().isEmpty(); }));
    manager_->stopListening();
    const int before = changes_;
    phone.android.unplug();
    runLoopFor(2s);
    EXPECT_EQ(changes_, before);
    EXPECT_EQ(udids(), QStringList{QStringLiteral("A")});

    manager_->startListening();
    EXPECT_TRUE(eventually([&] { return udids().isEmpty(); }, 1s));
}

TEST_F(DeviceManagerTest, managerMayGoWhileAPhoneIsAsked) {
    PluggedPhone phone(bus_, phoneConfig("A", "1-1"));
    phone.fault([](VirtualFaults& faults) { faults.delayEach = 50ms; });
    manager_->startListening();
    ASSERT_TRUE(eventually([&] { return phone.android.requestCount() > 0; }));
    manager_.reset();
    runLoopFor(300ms);
}

TEST_F(DeviceManagerTest, chosenProtocolStaysAcrossPollsAndReplugging) {
    PluggedPhone phone(bus_, phoneConfig("A", "1-1"));
    refresh(true);
    manager_->chooseProtocolMode(QStringLiteral("A"), ProtocolMode::adbTurbo);
    EXPECT_EQ(device("A")->protocolMode, ProtocolMode::adbTurbo);
    refresh(false);
    EXPECT_EQ(device("A")->protocolMode, ProtocolMode::adbTurbo);
    phone.android.unplug();
    refresh(false);
    phone.android.plugInto(bus_);
    refresh(false);
    EXPECT_EQ(device("A")->protocolMode, ProtocolMode::adbTurbo);
}

} // namespace
} // namespace tessary
