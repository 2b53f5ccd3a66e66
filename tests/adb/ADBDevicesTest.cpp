#include "adb/server/ADBDevices.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

TEST(ADBDevicesTest, listingsAreReadByTheirColumnsOrTabs) {
    const auto devices = parseADBDevices(
        "* daemon not running; starting now at tcp:5037\n"
        "* daemon started successfully\n"
        "List of devices attached\n"
        "8XV7N18403000001       device usb:1-4.2 product:panther model:Pixel_7 device:panther "
        "transport_id:3\n"
        "192.168.1.20:5555      device product:gta model:Galaxy_Tab device:gta transport_id:12\n"
        "ab device cd           unauthorized usb:1-2 transport_id:4\n"
        "USB-1                  recovery usb:1-3 transport_id:5\n"
        "adb-8XV7N1-abcdef._adb-tls-connect._tcp offline transport_id:6\n"
        "a  b \toffline\r\n"
        "no use at all\n\n");
    const std::tuple<QString, QString, bool> rows[] = {
        // serial, state, is network
        {u"8XV7N18403000001"_s, u"device"_s, false},
        {u"192.168.1.20:5555"_s, u"device"_s, true},
        {u"ab device cd"_s, u"unauthorized"_s, false},
        {u"USB-1"_s, u"recovery"_s, false},
        {u"adb-8XV7N1-abcdef._adb-tls-connect._tcp"_s, u"offline"_s, true},
        {u"a  b"_s, u"offline"_s, false}};
    ASSERT_EQ(devices.size(), std::size(rows));
    for (std::size_t n = 0; n < devices.size(); ++n)
        EXPECT_EQ(std::tuple(devices[n].serial, devices[n].state, devices[n].isNetwork()), rows[n]);
    EXPECT_EQ(devices[0].path, u"usb:1-4.2"_s);
    EXPECT_EQ(devices[0].model, u"Pixel 7"_s);
    EXPECT_EQ(devices[0].transportId, u"3"_s);
    EXPECT_TRUE(parseADBDevices(QByteArray("\x7F") + QByteArray(100'000, 'x')).empty());
}

} // namespace
} // namespace tessary
