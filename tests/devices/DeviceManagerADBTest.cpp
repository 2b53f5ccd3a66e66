#include "devices/DeviceManagerFixture.h"
#include "devices/files/DeviceServices.h"
#include "devices/list/DeviceManager.h"
#include "platform/settings/MemorySettingsStore.h"
#include "simulator/wire/PhoneSockets.h"
#include "support/ADBFixture.h"
#include "support/Soon.h"
#include "support/StallWatch.h"

#include <gmock/gmock.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using testing::HasSubstr;

/// The manager over the real adb, which reaches a phone whose serial number is "SERIAL".
class DeviceManagerADBTest : public DeviceManagerFixture, protected ADBPhone {
protected:
    explicit DeviceManagerADBTest(bool asksForKeys = false)
        : ADBPhone({.folder = {}, .serialNumber = u"SERIAL"_s, .asksForKeys = asksForKeys}) {
        restart(services_);
    }
    ~DeviceManagerADBTest() override {
        end();
    }

    /// As a new start of the program does, with the settings of the last.
    void restart(DeviceServices& services) {
        use(std::make_unique<DeviceManager>(DeviceSources(bus_, nullptr, true), services));
        manager_->rememberModesIn(defaults_);
    }
    [[nodiscard]] std::optional<ProtocolMode> mode(const char* udid) const {
        const auto found = device(udid);
        return found ? std::optional(found->protocolMode) : std::nullopt;
    }
    [[nodiscard]] bool hasStorage(const char* udid) const {
        const auto found = device(udid);
        return found && !found->volumes.empty();
    }
    /// Polls until `holds`.
    [[nodiscard]] bool isFoundByPolls(const std::function<bool()>& holds) {
        return comesTrue([&] {
            refresh(false);
            return holds();
        });
    }

    static ADBServerAddress at(std::uint16_t port) {
        return {.port = port, .socketPath = {}};
    }

    DeviceServices services_{{bus_, runner_, at(server_.port()), QStringList{realADB()}}};
    DeviceServices servicesWithoutADB_{{bus_, runner_, at(1), QStringList()}}; // nobody listens
    /// Takes connections and never says a word.
    const FileHandle silent_ = PhoneSockets::listenAt(u"127.0.0.1"_s, 0);
    DeviceServices servicesThatHang_{
        {bus_, runner_, at(PhoneSockets::portOf(silent_)), QStringList()}};
    const std::shared_ptr<MemorySettingsStore> defaults_ = std::make_shared<MemorySettingsStore>();
};

TEST_F(DeviceManagerADBTest, phoneThatBusAndADBKnowIsOneRowWhoseModeIsTheUsersChoice) {
    const PluggedPhone plugged(bus_, phoneConfig("SERIAL", "1-1"));
    refresh(true);
    EXPECT_EQ(mode("SERIAL"), ProtocolMode::mtp);
    connectPhone();
    ASSERT_TRUE(isFoundByPolls([&] { return mode("SERIAL") == ProtocolMode::adbTurbo; }));
    EXPECT_EQ(udids(), QStringList{u"SERIAL"_s});
    defaults_->setValue(DeviceManager::turboByChoiceKey, true);
    refresh(true);
    EXPECT_EQ(mode("SERIAL"), ProtocolMode::mtp) << "not by itself";
    defaults_->setValue(DeviceManager::turboByChoiceKey, false);
    refresh(true);
    EXPECT_EQ(mode("SERIAL"), ProtocolMode::adbTurbo);

    manager_->chooseProtocolMode(u"SERIAL"_s, ProtocolMode::mtp);
    for (int poll = 0; poll < 6; ++poll) {
        refresh(true);
        EXPECT_EQ(mode("SERIAL"), ProtocolMode::mtp) << poll;
        EXPECT_TRUE(hasStorage("SERIAL"));
        if (poll == 3)
            restart(services_); // it is remembered
    }
    EXPECT_EQ(udids(), QStringList{u"SERIAL"_s});
    manager_->chooseProtocolMode(u"SERIAL"_s, ProtocolMode::adbTurbo);
    restart(services_);
    refresh(true);
    EXPECT_EQ(mode("SERIAL"), ProtocolMode::adbTurbo);
}

TEST_F(DeviceManagerADBTest, phoneShowsAtOnceWhenADBTellsOfIt) {
    manager_->startListening();
    ASSERT_TRUE(eventually([&] { return rounds_ > 0; }));
    turnFor(1s);
    for (int n = 0; n < 2; ++n) {
        connectPhone();
        EXPECT_TRUE(eventually([&] { return udids() == QStringList(serial()); }));
        server_.disconnect(serial());
        EXPECT_TRUE(eventually([&] { return udids().isEmpty(); }));
    }
}

TEST_F(DeviceManagerADBTest, serverThatHangsHoldsUpNeitherTheWindowNorOtherPhones) {
    restart(servicesThatHang_);
    const PluggedPhone plugged(bus_, phoneConfig("SERIAL", "1-1"));
    StallWatch stalls;
    manager_->startListening();
    EXPECT_TRUE(eventually([&] { return hasStorage("SERIAL"); }, soon));
    turnFor(2s);
    EXPECT_LT(stalls.longest(), 1000) << "milliseconds";
    EXPECT_EQ(udids(), QStringList{u"SERIAL"_s});
}

TEST_F(DeviceManagerADBTest, withoutADBThePhoneIsReadOverMTPAndTheUserSeesWhy) {
    const PluggedPhone plugged(bus_, phoneConfig("SERIAL", "1-1"));
    restart(servicesWithoutADB_);
    manager_->chooseProtocolMode(u"SERIAL"_s, ProtocolMode::adbTurbo);
    ASSERT_TRUE(isFoundByPolls([&] { return hasStorage("SERIAL"); }));
    ASSERT_TRUE(trouble("SERIAL"));
    EXPECT_EQ(trouble("SERIAL")->error.code(), ErrorCode(DeviceError::turboUnavailable));
    manager_->chooseProtocolMode(u"SERIAL"_s, ProtocolMode::mtp);
    refresh(true);
    EXPECT_FALSE(trouble("SERIAL"));
}

class AskingPhoneTest : public DeviceManagerADBTest {
protected:
    AskingPhoneTest() : DeviceManagerADBTest(true) {
        adbd_->setAllowsUnknownKeys(false);
    }
};

TEST_F(AskingPhoneTest, phoneThatHasNotAllowedThisComputerSaysWhatToDoUntilItHas) {
    server_.connect(serial());
    ASSERT_TRUE(reaches(u"unauthorized"_s)) << devices().toStdString();
    const QByteArray udid = serial().toUtf8();
    ASSERT_TRUE(isFoundByPolls([&] { return trouble(udid.constData()).has_value(); }));
    EXPECT_EQ(trouble(udid.constData())->error.code(), ErrorCode(PhoneError::notTrusted));
    adbd_->setAllowsUnknownKeys(true);
    EXPECT_TRUE(isFoundByPolls([&] { return hasStorage(udid.constData()); }));
    EXPECT_FALSE(trouble(udid.constData()));
}

} // namespace
} // namespace tessary
