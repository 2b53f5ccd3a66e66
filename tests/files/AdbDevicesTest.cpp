#include "files/AdbDevices.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace tessary {

namespace {

using namespace Qt::StringLiterals;

TEST(AdbDevicesTest, longListingIsReadByItsColumns) {
    const auto devices = parseAdbDevices(
        "* daemon not running; starting now at tcp:5037\n"
        "* daemon started successfully\n"
        "List of devices attached\n"
        "8XV7N18403000001       device usb:1-4.2 product:panther model:Pixel_7 device:panther "
        "transport_id:3\n"
        "192.168.1.20:5555      device product:gta model:Galaxy_Tab device:gta transport_id:12\n"
        "ab device cd           unauthorized usb:1-2 transport_id:4\n"
        "USB-1                  recovery usb:1-3 transport_id:5\n"
        "adb-8XV7N1-abcdef._adb-tls-connect._tcp offline transport_id:6\n"
        "no use at all\n\n");
    ASSERT_EQ(devices.size(), 5u);
    EXPECT_EQ(devices[0].serial, u"8XV7N18403000001"_s);
    EXPECT_EQ(devices[0].path, u"usb:1-4.2"_s);
    EXPECT_EQ(devices[0].model, u"Pixel 7"_s);
    EXPECT_EQ(devices[0].transportId, u"3"_s);
    EXPECT_TRUE(devices[0].isReady());
    EXPECT_FALSE(devices[0].isNetwork());
    EXPECT_TRUE(devices[1].isNetwork());
    EXPECT_EQ(devices[2].serial, u"ab device cd"_s);
    EXPECT_EQ(devices[2].state, u"unauthorized"_s);
    EXPECT_EQ(devices[3].serial, u"USB-1"_s);
    EXPECT_FALSE(devices[3].isReady());
    EXPECT_EQ(devices[4].serial, u"adb-8XV7N1-abcdef._adb-tls-connect._tcp"_s);
    EXPECT_TRUE(devices[4].isNetwork());
}

TEST(AdbDevicesTest, shortListingSeparatesByTabs) {
    const auto devices = parseAdbDevices("List of devices attached\r\nemulator-5554\tdevice\r\n"
                                         "a  b \toffline\r\n");
    ASSERT_EQ(devices.size(), 2u);
    EXPECT_EQ(devices[0].serial, u"emulator-5554"_s);
    EXPECT_TRUE(devices[0].isNetwork());
    EXPECT_EQ(devices[1].serial, u"a  b"_s);
}

TEST(AdbDevicesTest, nonsenseHoldsNoDevice) {
    EXPECT_TRUE(parseAdbDevices(QByteArray("\x7F") + QByteArray(100'000, 'x')).empty());
    EXPECT_TRUE(parseAdbDevices({}).empty());
}

} // namespace

} // namespace tessary
