#include "cli/devices/DeviceChanges.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

DeviceInfo phone(const char* udid) {
    DeviceInfo device;
    device.udid = QString::fromUtf8(udid);
    device.platform = DevicePlatform::android;
    device.protocolMode = ProtocolMode::mtp;
    device.deviceName = u"Phone"_s;
    return device;
}

DeviceSnapshot snapshotOf(std::vector<DeviceInfo> devices) {
    return {std::move(devices), {}, false, false};
}

/// The one change between two snapshots, as a line without runs of blanks.
QString lineBetween(const DeviceSnapshot& before, const DeviceSnapshot& after) {
    const auto changes = changesBetween(before, after);
    if (changes.size() != 1)
        return u"%1 changes"_s.arg(changes.size());
    return changeLine(changes.front()).simplified();
}

TEST(DeviceChangesTest, phonesThatGoAreToldBeforeThoseThatCome) {
    const auto changes =
        changesBetween(snapshotOf({phone("A"), phone("B")}), snapshotOf({phone("B"), phone("C")}));
    ASSERT_EQ(changes.size(), 2U);
    EXPECT_EQ(changeLine(changes[0]).simplified(), u"detached A Phone"_s);
    EXPECT_EQ(changeLine(changes[1]).simplified(),
              u"attached C Phone Android Standard MTP battery -"_s);
}

TEST(DeviceChangesTest, whatChangedIsShownOnceAndTroubleIsSaid) {
    const DeviceSnapshot before = snapshotOf({phone("A")});
    DeviceSnapshot after = before;
    after.devices[0].batteryLevel = 7;
    EXPECT_EQ(lineBetween(before, after), u"changed A Phone battery 7 %"_s);
    after.devices[0].isLocked = true;
    EXPECT_TRUE(lineBetween(before, after).endsWith(u"choose File transfer on it"_s));

    after = before;
    after.troubles.insert(phone("A").id(), {Error(PhoneError::held, {u"gvfsd-mtp"_s})});
    EXPECT_EQ(
        lineBetween(before, after),
        u"changed A Phone gvfsd-mtp is using the phone. Close it, or unmount the phone in the desktop's file manager, and try again."_s);
    EXPECT_EQ(lineBetween(after, before), u"changed A Phone can be read again"_s);
}

TEST(DeviceChangesTest, namesFromAPhoneCannotForgeALine) {
    DeviceInfo device = phone("A\nattached B");
    device.deviceName = u"x\u001b[2J\ny"_s;
    const QString line = lineBetween({}, snapshotOf({device}));
    EXPECT_FALSE(line.contains(QLatin1Char('\n')) || line.contains(QChar(0x1B)));
}

} // namespace
} // namespace tessary
