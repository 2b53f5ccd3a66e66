#include "devices/list/DeviceManager.h"
#include "devices/DeviceManagerFixture.h"
#include "devices/files/DeviceServices.h"
#include "support/FakeProcessRunner.h"
#include "support/StallWatch.h"

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

/// The manager over the real file service and virtual phones.
class DeviceManagerTest : public DeviceManagerFixture {
protected:
    DeviceManagerTest() {
        use(std::make_unique<DeviceManager>(bus_, services_));
    }
    ~DeviceManagerTest() override {
        end();
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

    FakeProcessRunner processes_;
    DeviceServices services_{{bus_, processes_}};
};

TEST_F(DeviceManagerTest, pollsAskForWhatIsMissingAndPublishWhatDiffers) {
    PluggedPhone phone(bus_, phoneConfig("A", "1-1"));
    refresh(false);
    ASSERT_TRUE(hasDetails("A")) << "no event told of it";
    phone.android.clearRequestLog();
    const int before = changes_;
    for (int n = 0; n < 5; ++n)
        refresh(false);
    EXPECT_EQ(phone.android.requestCount(), 0U);
    refresh(true);
    EXPECT_GT(phone.android.requestCount(), 0U);
    EXPECT_EQ(changes_, before);
    phone.android.setBattery(79);
    refresh(true);
    EXPECT_EQ(changes_, before + 1);
    EXPECT_EQ(device("A")->batteryLevel, 79);
}

TEST_F(DeviceManagerTest, aQuestionThatComesToNoEndIsGivenUp) {
    PluggedPhone phone(bus_, phoneConfig("A", "1-1"));
    hang(phone, true);
    std::stop_source end;
    end.request_stop();
    for (const auto& [limit, stop] :
         {std::pair(60'000ms, end.get_token()), std::pair(200ms, std::stop_token())}) {
        const auto start = std::chrono::steady_clock::now();
        const DeviceAnswer answer = PhoneProbe(services_, limit).ask(phone.info, stop);
        EXPECT_LT(std::chrono::steady_clock::now() - start, 3s) << "its own limits are longer";
        EXPECT_EQ(answer.outcome, DeviceAnswer::Outcome::failed);
    }
}

TEST_F(DeviceManagerTest, lockedPhoneShowsItsStorageAtThePollAfterItIsUnlocked) {
    PluggedPhone phone(bus_, phoneConfig("A", "1-1"));
    phone.android.setLocked(true);
    refresh(true);
    EXPECT_TRUE(device("A")->isLocked && !device("A")->isDataAccessible());
    EXPECT_FALSE(trouble("A"));
    phone.android.setLocked(false);
    refresh(false);
    EXPECT_TRUE(hasDetails("A") && !device("A")->isLocked);
}

TEST_F(DeviceManagerTest, hangingPhoneDelaysNeitherAnotherNorTheMainThread) {
    PluggedPhone silent(bus_, phoneConfig("A", "1-1"));
    hang(silent, true);
    PluggedPhone sound(bus_, phoneConfig("B", "1-2"));
    const StallWatch stalls;
    manager_->startListening();
    ASSERT_TRUE(eventually([&] { return hasDetails("B"); }));
    EXPECT_FALSE(hasDetails("A") || trouble("A")) << "B waited until A's time was up";
    sound.android.setBattery(55);
    EXPECT_TRUE(eventually([&] { return device("B")->batteryLevel == 55; }));
    ASSERT_TRUE(eventually([&] { return trouble("A").has_value(); }, 40s));
    EXPECT_EQ(trouble("A")->error.code(), ErrorCode(PhoneError::noAnswer));
    EXPECT_LT(stalls.longest(), 3000) << "a wait for the phone takes five";

    hang(silent, false);
    silent.android.unplug();
    silent.android.plugInto(bus_);
    EXPECT_TRUE(eventually([&] { return hasDetails("A") && !trouble("A"); }));
}

TEST_F(DeviceManagerTest, troubleTellsWhyThePhoneCannotBeReadAndGoesWithIt) {
    const QString location = u"1-1"_s;
    PluggedPhone phone(bus_, phoneConfig("A", "1-1"));
    refresh(true);
    const DeviceInfo before = *device("A");
    turnFor(PhoneQueue::defaultIdleTime + 500ms); // the session is closed
    bus_.setProgramsHolding(location, {u"gvfsd-mtp"_s});
    bus_.setOpenFaults(location,
                       {usb::exclusiveAccess, usb::exclusiveAccess, usb::exclusiveAccess});
    refresh(true);
    ASSERT_TRUE(trouble("A"));
    EXPECT_EQ(trouble("A")->error.code(), ErrorCode(PhoneError::held));
    EXPECT_EQ(trouble("A")->error.arguments(), QVariantList{u"gvfsd-mtp"_s});
    EXPECT_TRUE(*device("A") == before) << "the last figures stay";
    EXPECT_EQ(troubleChanges_, 1);
    refresh(true);
    EXPECT_EQ(troubleChanges_, 1);

    bus_.setOpenFaults(location, {usb::notPermitted, {}, {}});
    refresh(true);
    EXPECT_EQ(trouble("A")->error.code(), ErrorCode(PhoneError::notPermitted));
    EXPECT_FALSE(device("A")->isLocked);

    bus_.setOpenFaults(location, {});
    refresh(true);
    EXPECT_FALSE(trouble("A"));
    EXPECT_EQ(troubleChanges_, 3);
}

} // namespace
} // namespace tessary
