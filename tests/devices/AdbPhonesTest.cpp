#include "devices/AdbPhones.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace tessary {

namespace {

using namespace Qt::StringLiterals;

DeviceInfo onBus(const QString& serial, const QString& location) {
    DeviceInfo phone;
    phone.platform = DevicePlatform::android;
    phone.protocolMode = ProtocolMode::mtp;
    phone.udid = phone.serialNumber.emplace(serial);
    phone.usbLocation = location;
    return phone;
}

AdbDevice reached(const QString& serial, const QString& state, const QString& path = {}) {
    return {serial, state, path, u"Pixel 7"_s, u"1"_s, {}};
}

TEST(AdbPhonesTest, phoneThatBothKnowIsOneEntryInTurboMode) {
    std::vector<DeviceInfo> phones{onBus(u"A"_s, u"1-1"_s), onBus(u"B"_s, u"1-2"_s)};
    addAdbPhones(phones, {reached(u"A"_s, u"device"_s, u"usb:1-1"_s),
                          reached(u"B"_s, u"unauthorized"_s, u"usb:1-2"_s)});
    ASSERT_EQ(phones.size(), 2u);
    EXPECT_EQ(phones[0].protocolMode, ProtocolMode::adbTurbo);
    EXPECT_EQ(phones[1].protocolMode, ProtocolMode::mtp);
}

TEST(AdbPhonesTest, phoneThatOnlyAdbReachesIsANetworkConnectionCalledByItsModel) {
    std::vector<DeviceInfo> phones;
    addAdbPhones(phones, {reached(u"10.0.0.2:5555"_s, u"device"_s)});
    ASSERT_EQ(phones.size(), 1u);
    EXPECT_EQ(phones[0].connectionType, ConnectionType::network);
    EXPECT_EQ(phones[0].protocolMode, ProtocolMode::adbTurbo);
    EXPECT_EQ(phones[0].deviceName, u"Pixel 7"_s);
    EXPECT_EQ(phones[0].serialNumber, u"10.0.0.2:5555"_s);
}

TEST(AdbPhonesTest, phoneOnTheNetworkThatIsAlsoPluggedInStaysOneEntry) {
    std::vector<DeviceInfo> phones{onBus(u"SERIAL"_s, u"1-1"_s)};
    AdbDevice device = reached(u"10.0.0.2:5555"_s, u"device"_s);
    device.phoneSerial = u"SERIAL"_s;
    addAdbPhones(phones, {device});
    ASSERT_EQ(phones.size(), 1u);
    EXPECT_EQ(phones[0].protocolMode, ProtocolMode::adbTurbo);
}

TEST(AdbPhonesTest, twinsOfOneSerialAreToldApartByTheirPlace) {
    std::vector<DeviceInfo> phones{onBus(u"TWIN"_s, u"1-1"_s), onBus(u"TWIN"_s, u"1-2"_s)};
    addAdbPhones(phones, {reached(u"TWIN"_s, u"device"_s, u"usb:1-2"_s)});
    ASSERT_EQ(phones.size(), 2u);
    EXPECT_EQ(phones[0].protocolMode, ProtocolMode::mtp);
    EXPECT_EQ(phones[1].protocolMode, ProtocolMode::adbTurbo);
}

} // namespace

} // namespace tessary
