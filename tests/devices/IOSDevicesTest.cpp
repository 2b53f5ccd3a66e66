#include "devices/IOSDevices.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <vector>

namespace tessary {
namespace {

constexpr ConnectionType cable = ConnectionType::usb;
constexpr ConnectionType wifi = ConnectionType::network;

MultiplexerEntry entry(const char* udid, std::uint32_t handle, ConnectionType type) {
    return {QString::fromLatin1(udid), handle, 0x12A8, type};
}

TEST(IOSDevices, aPhoneOnCableAndWifiIsOneDeviceOnTheCable) {
    const struct {
        const char* name;
        std::vector<MultiplexerEntry> entries;
        std::uint32_t handle;
        ConnectionType type;
    } rows[] = {
        {"wifiFirst", {entry("a", 1, wifi), entry("a", 2, cable)}, 2, cable},
        {"cableFirst", {entry("a", 1, cable), entry("a", 2, wifi)}, 1, cable},
        {"twiceOnWifi", {entry("a", 1, wifi), entry("a", 2, wifi)}, 1, wifi},
        {"twiceOnCable", {entry("a", 1, cable), entry("a", 2, cable)}, 1, cable},
    };
    for (const auto& row : rows) {
        const auto devices = iosDevices(row.entries);
        ASSERT_EQ(devices.size(), 1U) << row.name;
        EXPECT_EQ(devices.front().handle, row.handle) << row.name;
        EXPECT_EQ(devices.front().connectionType, row.type) << row.name;
    }
}

TEST(IOSDevices, carryWhatTheMultiplexerTellsAndNothingElse) {
    const auto devices = iosDevices(std::vector{entry("b", 7, wifi), entry("a", 3, cable)});
    ASSERT_EQ(devices.size(), 2U);
    DeviceInfo expected;
    expected.udid = QStringLiteral("b");
    expected.platform = DevicePlatform::iOS;
    expected.handle = 7;
    expected.productId = 0x12A8;
    expected.connectionType = ConnectionType::network;
    expected.protocolMode = ProtocolMode::afc;
    EXPECT_EQ(devices.front(), expected);
}

} // namespace
} // namespace tessary
