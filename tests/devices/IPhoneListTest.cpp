// The iPhone half of the device list, on a virtual multiplexer by way of the real libraries.

#include "devices/DeviceManagerFixture.h"
#include "devices/files/DeviceServices.h"
#include "ios/Multiplexer.h"
#include "support/FakeProcessRunner.h"
#include "support/PluggedIPhone.h"

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

class IPhoneListTest : public DeviceManagerFixture {
protected:
    IPhoneListTest() {
        use(std::make_unique<DeviceManager>(DeviceSources(bus_, &multiplexer_), services_));
    }
    ~IPhoneListTest() override {
        end();
        QCoreApplication::processEvents();
    }
    [[nodiscard]] const DeviceInfo* only() const {
        return manager_->devices().size() == 1 ? &manager_->devices().front() : nullptr;
    }
    [[nodiscard]] bool hasDetails() const {
        return only() != nullptr && only()->deviceName && only()->totalStorageBytes;
    }

    Multiplexer multiplexer_;
    FakeProcessRunner processes_;
    DeviceServices services_{{bus_, processes_}};
};

TEST_F(IPhoneListTest, phonesComeAndGoWithTheirDetails) {
    PluggedIPhone iphone;
    manager_->startListening();
    ASSERT_TRUE(eventually([&] { return hasDetails(); }));
    EXPECT_EQ(only()->udid, iphone.udid());
    EXPECT_EQ(only()->platform, DevicePlatform::iOS);
    EXPECT_EQ(only()->protocolMode, ProtocolMode::afc);
    EXPECT_EQ(only()->connectionType, ConnectionType::usb);
    EXPECT_EQ(only()->deviceName, u"iPhone"_s);
    EXPECT_EQ(only()->totalStorageBytes, 128'000'000'000);
    EXPECT_TRUE(only()->isDataAccessible());
    const std::uint32_t handle = only()->handle;

    // At once by their events, and not at the next poll.
    manager_->stopListening();
    manager_->startListening();
    ASSERT_TRUE(eventually([&] { return hasDetails(); }));
    turnFor(300ms);
    iphone.phone.unplug();
    EXPECT_TRUE(eventually([&] { return manager_->devices().empty(); }));
    iphone.phone.plugInto(iphone.mux);
    ASSERT_TRUE(eventually([&] { return hasDetails(); }));
    EXPECT_NE(only()->handle, handle);
}

TEST_F(IPhoneListTest, aPhoneOnCableAndWifiIsOneRow) {
    PluggedIPhone iphone({.wifiAddress = u"127.0.0.31"_s});
    ASSERT_NE(iphone.phone.joinWifi(iphone.mux), 0U);
    refresh(true);
    ASSERT_TRUE(eventually([&] { return hasDetails(); }));
    EXPECT_EQ(only()->connectionType, ConnectionType::usb);
    iphone.phone.unplug();
    ASSERT_TRUE(eventually([&] {
        manager_->refreshDeviceList(false);
        turnFor(20ms);
        return only() != nullptr && only()->connectionType == ConnectionType::network;
    }));
    EXPECT_EQ(only()->deviceName, u"iPhone"_s); // carried over
}

TEST_F(IPhoneListTest, withoutAMultiplexerThereIsQuietUntilOneAppears) {
    auto gone = std::make_unique<PluggedIPhone>();
    gone.reset();
    manager_->startListening();
    turnFor(200ms);
    EXPECT_TRUE(manager_->devices().empty());
    EXPECT_EQ(changes_, 0);
    PluggedIPhone iphone;
    EXPECT_TRUE(eventually([&] { return hasDetails(); }));
}

} // namespace
} // namespace tessary
