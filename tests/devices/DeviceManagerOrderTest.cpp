#include "devices/DeviceManagerFixture.h"
#include "support/Gate.h"

#include <atomic>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

/// A bus whose scans, watches and events are in the test's hands.
class ScriptedBus final : public USBBus {
public:
    using Callback = std::function<void(const USBEvent&)>;

    [[nodiscard]] std::vector<USBDeviceEntry> devices() override {
        std::vector<USBDeviceEntry> seen;
        {
            const std::scoped_lock lock(mutex_);
            seen = entries_;
        }
        ++scanCount_;
        scans_.pass(); // what it saw is old when it returns
        return seen;
    }
    [[nodiscard]] std::unique_ptr<USBDevice> device(std::uint64_t) override {
        return nullptr;
    }
    [[nodiscard]] std::unique_ptr<USBWatch> watch(Callback callback) override {
        const std::scoped_lock lock(mutex_);
        callback_ = std::move(callback);
        return std::make_unique<USBWatch>();
    }
    [[nodiscard]] QStringList programsHolding(std::uint64_t) override {
        return {};
    }

    /// Changes what is attached, and tells of it when it is watched.
    void attach(std::uint64_t id) {
        const USBDeviceEntry entry{id,         0x18D1, 0x4EE1,   u"Pixel"_s, u"Google"_s,
                                   u"Pixel"_s, u"A"_s, u"1-1"_s, {}};
        tell({entry}, {USBEvent::Kind::attached, entry});
    }
    void detach(std::uint64_t id) {
        USBDeviceEntry gone;
        gone.id = id;
        gone.location = u"1-1"_s;
        tell({}, {USBEvent::Kind::detached, gone});
    }
    [[nodiscard]] bool isWatched() {
        const std::scoped_lock lock(mutex_);
        return static_cast<bool>(callback_);
    }

    Gate scans_{true};
    std::atomic<int> scanCount_ = 0;

private:
    void tell(std::vector<USBDeviceEntry> entries, const USBEvent& event) {
        Callback callback;
        {
            const std::scoped_lock lock(mutex_);
            entries_ = std::move(entries);
            callback = callback_;
        }
        if (callback)
            callback(event);
    }

    std::mutex mutex_; ///< guards all below
    std::vector<USBDeviceEntry> entries_;
    Callback callback_;
};

/// Answers with rising battery levels, in the order of the questions.
class ScriptedInquiry final : public DeviceProbe {
public:
    [[nodiscard]] DeviceAnswer ask(const DeviceInfo&, const std::stop_token&) override {
        const int number = ++questions_;
        gate_.pass();
        return {DeviceAnswer::Outcome::answered, {number, {StorageVolume{}}}, {}};
    }
    [[nodiscard]] bool isConflictingAppRunning() override {
        ++conflictQuestions_;
        conflictGate_.pass();
        return isConflicting_;
    }

    Gate gate_{true};
    Gate conflictGate_{true};
    std::atomic<bool> isConflicting_ = false;
    std::atomic<int> conflictQuestions_ = 0;
    std::atomic<int> questions_ = 0;
};

/// What comes late, in the wrong order or not at all.
class DeviceManagerOrderTest : public DeviceManagerFixture {
protected:
    DeviceManagerOrderTest() {
        use(std::make_unique<DeviceManager>(scripted_, inquiry_));
    }
    ~DeviceManagerOrderTest() override {
        manager_.reset();
        for (Gate* gate : {&scripted_.scans_, &inquiry_->gate_, &inquiry_->conflictGate_})
            gate->open();
        EXPECT_TRUE(Background::shutDown(60s));
    }
    void listen() {
        manager_->startListening();
        ASSERT_TRUE(eventually([&] { return scripted_.isWatched() && rounds_ > 0; }));
    }
    [[nodiscard]] std::optional<int> battery() const {
        const auto found = device("A");
        return found ? found->batteryLevel : std::nullopt;
    }

    ScriptedBus scripted_;
    const std::shared_ptr<ScriptedInquiry> inquiry_ = std::make_shared<ScriptedInquiry>();
};

TEST_F(DeviceManagerOrderTest, slowScanDoesNotBringBackWhatWasUnplugged) {
    listen();
    scripted_.attach(1);
    ASSERT_TRUE(eventually([&] { return battery().has_value(); }));
    scripted_.scans_.close();
    ASSERT_TRUE(eventually([&] {
        manager_->refreshDeviceList(false); // the scan of the event may be under way still
        return scripted_.scans_.waiting() == 1;
    }));
    scripted_.detach(1);
    ASSERT_TRUE(eventually([&] { return udids().isEmpty(); }));
    const int before = changes_;
    scripted_.scans_.open();
    turnFor(300ms);
    EXPECT_EQ(changes_, before);
}

TEST_F(DeviceManagerOrderTest, withoutAPhoneNothingIsReadOrStartedAgainAndAgain) {
    listen();
    turnFor(200ms);
    const int scans = scripted_.scanCount_;
    turnFor(5500ms); // polls of the list and of the figures
    EXPECT_EQ(scripted_.scanCount_, scans);
    EXPECT_EQ(inquiry_->conflictQuestions_, 0) << "about programs that hold a phone";
}

TEST_F(DeviceManagerOrderTest, lateAnswerIsNotTakenForADeviceThatWasReplugged) {
    listen();
    inquiry_->gate_.close();
    scripted_.attach(1);
    ASSERT_TRUE(eventually([&] { return inquiry_->questions_ == 1; }));
    scripted_.detach(1);
    scripted_.attach(2);
    ASSERT_TRUE(eventually([&] { return inquiry_->questions_ == 2; }));
    bool sawFirst = false;
    QObject::connect(manager_.get(), &DeviceManager::devicesChanged,
                     [&] { sawFirst |= battery() == 1; });
    inquiry_->gate_.open();
    ASSERT_TRUE(eventually([&] { return battery() == 2; }));
    EXPECT_FALSE(sawFirst);
}

TEST_F(DeviceManagerOrderTest, conflictIsPublishedWhenTheLaggingAnswerComes) {
    inquiry_->conflictGate_.close();
    inquiry_->isConflicting_ = true;
    scripted_.attach(1);
    for (int n = 0; n < 3; ++n)
        refresh(true);
    EXPECT_TRUE(battery()) << "nothing waits for that answer";
    EXPECT_FALSE(manager_->hasUSBConflict());
    EXPECT_EQ(inquiry_->conflictQuestions_, 1) << "one question at a time";
    inquiry_->conflictGate_.open();
    EXPECT_TRUE(eventually([&] { return manager_->hasUSBConflict(); }));
    inquiry_->isConflicting_ = false;
    refresh(false);
    EXPECT_TRUE(eventually([&] { return !manager_->hasUSBConflict(); }));
    EXPECT_EQ(conflictChanges_, 2);
}

} // namespace
} // namespace tessary
