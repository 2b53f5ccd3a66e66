#include "cli/DeviceChanges.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace tessary {
namespace {

DeviceInfo phone(const char* udid) {
    DeviceInfo device;
    device.udid = QString::fromUtf8(udid);
    device.platform = DevicePlatform::android;
    device.protocolMode = ProtocolMode::mtp;
    device.deviceName = QStringLiteral("Phone");
    return device;
}

DeviceSnapshot snapshotOf(std::vector<DeviceInfo> devices) {
    return {std::move(devices), {}, false, false};
}

/// The one change between two snapshots, as a line without runs of blanks.
QString lineBetween(const DeviceSnapshot& before, const DeviceSnapshot& after) {
    const auto changes = changesBetween(before, after);
    if (changes.size() != 1)
        return QStringLiteral("%1 changes").arg(changes.size());
    return changeLine(changes.front()).simplified();
}

TEST(DeviceChangesTest, phonesThatGoAreToldBeforeThoseThatCome) {
    const auto changes =
        changesBetween(snapshotOf({phone("A"), phone("B")}), snapshotOf({phone("B"), phone("C")}));
    ASSERT_EQ(changes.size(), 2U);
    EXPECT_EQ(changeLine(changes[0]).simplified(), QStringLiteral("detached A Phone"));
    EXPECT_EQ(changeLine(changes[1]).simplified(),
              QStringLiteral("attached C Phone Android Standard MTP battery -"));
}

TEST(DeviceChangesTest, eachChangedDetailIsShownOnce) {
    const DeviceSnapshot before = snapshotOf({phone("A")});
    DeviceSnapshot after = before;
    DeviceInfo& device = after.devices[0];

    device.batteryLevel = 7;
    EXPECT_EQ(lineBetween(before, after), QStringLiteral("changed A Phone battery 7 %"));

    device.isLocked = true;
    EXPECT_TRUE(lineBetween(before, after).endsWith(QStringLiteral("choose File transfer on it")));

    device = phone("A");
    device.volumes.push_back({QStringLiteral("1"), QStringLiteral("Internal"), 2000, 1000, false});
    EXPECT_EQ(lineBetween(before, after), QStringLiteral("changed A Phone 1 kB free of 2 kB"));

    device = phone("A");
    after.troubles.insert(device.id(), {DeviceTrouble::Kind::heldByProgram,
                                        {},
                                        QStringLiteral("Held."),
                                        QStringLiteral("Close.")});
    EXPECT_EQ(lineBetween(before, after), QStringLiteral("changed A Phone Held. Close."));
    EXPECT_EQ(lineBetween(after, before), QStringLiteral("changed A Phone can be read again"));
}

TEST(DeviceChangesTest, namesFromAPhoneCannotForgeALine) {
    DeviceInfo device = phone("A\nattached B");
    device.deviceName = QStringLiteral("x\u001b[2J\ny");
    const QString line = lineBetween({}, snapshotOf({device}));
    EXPECT_FALSE(line.contains(QLatin1Char('\n')) || line.contains(QChar(0x1B)));
}

} // namespace
} // namespace tessary
