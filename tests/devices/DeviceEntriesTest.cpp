#include "devices/list/ADBPhones.h"
#include "devices/list/AndroidDevices.h"
#include "support/QtPrinters.h"

#include <gmock/gmock.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

USBDeviceEntry entryOf(std::uint16_t vendorID, const char* vendor, const char* product,
                       const char* serial = "", const char* location = "1-1",
                       std::uint64_t id = 1) {
    USBDeviceEntry entry;
    entry.id = id;
    entry.vendorID = vendorID;
    entry.productID = 0x4EE7;
    entry.registryName = QString::fromUtf8(product);
    entry.vendorName = QString::fromUtf8(vendor);
    entry.productName = QString::fromUtf8(product);
    entry.serialNumber = QString::fromUtf8(serial);
    entry.location = QString::fromUtf8(location);
    return entry;
}

constexpr std::uint16_t knownVendor = 0x18D1;
constexpr std::uint16_t unknownVendor = 0x1234;

TEST(AndroidDevicesTest, excludedWordsOverrideKnownVendorsAndHints) {
    EXPECT_TRUE(extractAndroidDevice(entryOf(knownVendor, "", "Phone")));
    EXPECT_FALSE(extractAndroidDevice(entryOf(knownVendor ^ 0x8000, "", "Phone")));
    for (const char* word : {"Western Digital", "wd", "APPLE", "VIA Labs", "Burr-Brown"}) {
        const QByteArray inside = QByteArray("<") + word + ">";
        EXPECT_FALSE(extractAndroidDevice(entryOf(knownVendor, inside, "Android"))) << word;
        EXPECT_FALSE(extractAndroidDevice(entryOf(knownVendor, "Google", inside))) << word;
    }
}

TEST(AndroidDevicesTest, interfacesCountForMoreThanNames) {
    const USBInterfaceEntry mtp{0, 6, 1, 1, {}};
    const USBInterfaceEntry named{0, 255, 255, 0, u"MTP"_s};
    const USBInterfaceEntry adb{1, 255, 66, 1, u"ADB Interface"_s};
    const USBInterfaceEntry storage{0, 8, 6, 80, {}};
    const USBInterfaceEntry mouse{0, 3, 1, 2, {}};
    const USBInterfaceEntry bluetooth{0, 0xE0, 1, 1, {}};
    const USBInterfaceEntry tethering{0, 0xE0, 1, 3, {}};
    const USBInterfaceEntry headset{0, 1, 1, 0, {}};
    const struct {
        const char* name;
        std::uint16_t vendorID;
        std::vector<USBInterfaceEntry> interfaces;
        bool accepted;
    } rows[] = {
        {"OPPO", 0x22D9, {mtp}, true},
        {"Fairphone, with adb", 0x2AE5, {mtp, adb}, true},
        {"Garmin, by its name", 0x091E, {named}, true},
        {"Canon", 0x04A9, {mtp}, true},
        {"iPhone", 0x05AC, {mtp}, false},
        {"Bluetooth adapter of a phone's maker", 0x0E8D, {bluetooth, bluetooth}, false},
        {"lighting controller", 0x0B05, {mouse}, false},
        {"mouse and dock", 0x17EF, {mouse, headset}, false},
        {"disk", 0x18D1, {storage}, false},
        {"phone that charges", 0x18D1, {adb}, true},
        {"phone that tethers", 0x18D1, {tethering, storage}, true},
        {"nothing known of the interfaces", 0x18D1, {}, true},
        {"unknown maker's adb", unknownVendor, {adb}, false},
    };
    for (const auto& row : rows) {
        USBDeviceEntry entry = entryOf(row.vendorID, "Maker", "Thing");
        entry.interfaces = row.interfaces;
        EXPECT_EQ(extractAndroidDevice(entry).has_value(), row.accepted) << row.name;
    }
}

QStringList udidsOf(const std::vector<USBDeviceEntry>& entries, const AttachedUdids& named = {}) {
    QStringList udids;
    for (const DeviceInfo& device : androidDevices(entries, {}, named))
        udids.append(device.udid);
    return udids;
}

TEST(AndroidDevicesTest, phonesThatShareASerialNumberAreToldApartByLocation) {
    for (const char* serial : {"", "0123456789ABCDEF"}) {
        const std::vector entries{entryOf(knownVendor, "", "A", serial, "1-1", 1),
                                  entryOf(knownVendor, "", "A", serial, "1-2", 2),
                                  entryOf(knownVendor, "", "A", serial, "1-3", 3)};
        const QString base = *serial ? QString::fromLatin1(serial) : u"USB-6353-20199"_s;
        EXPECT_THAT(udidsOf(entries), ElementsAre(base, base + QLatin1StringView("-1-2"),
                                                  base + QLatin1StringView("-1-3")));
        for (const DeviceInfo& device : androidDevices(entries, {}))
            EXPECT_EQ(device.serialNumber, base);
    }
}

TEST(AndroidDevicesTest, udidStaysWithItsAttachment) {
    const auto first = entryOf(knownVendor, "", "A", "S", "1-1", 1);
    const auto second = entryOf(knownVendor, "", "A", "S", "1-2", 2);
    const auto third = entryOf(knownVendor, "", "A", "S", "1-0", 3);
    const AttachedUdids named{{1, u"S"_s}, {2, u"S-1-2"_s}};
    EXPECT_THAT(udidsOf({second}, named), ElementsAre(u"S-1-2"_s));
    // A newcomer in front of the others takes no name from them.
    EXPECT_THAT(udidsOf({third, first, second}, named),
                ElementsAre(u"S-1-0"_s, u"S"_s, u"S-1-2"_s));
}

constexpr ProtocolMode mtp = ProtocolMode::mtp;
constexpr ProtocolMode turbo = ProtocolMode::adbTurbo;

DeviceInfo onBus(const QString& serial, const QString& location) {
    DeviceInfo phone;
    phone.platform = DevicePlatform::android;
    phone.protocolMode = ProtocolMode::mtp;
    phone.udid = phone.serialNumber.emplace(serial);
    phone.usbLocation = location;
    return phone;
}

ADBDevice reached(const QString& serial, const QString& state, const QString& path = {}) {
    return {serial, state, path, u"Pixel 7"_s, u"1"_s, {}};
}

TEST(ADBPhonesTest, phoneThatBothKnowIsOneEntryInTurboMode) {
    ADBDevice onNetwork = reached(u"10.0.0.2:5555"_s, u"device"_s);
    onNetwork.phoneSerial = u"A"_s;
    const struct {
        const char* name;
        QString secondSerial;
        ADBDevice device;
        ProtocolMode first;
        ProtocolMode second;
    } rows[] = {
        {"same cable", u"B"_s, reached(u"A"_s, u"device"_s, u"usb:1-1"_s), turbo, mtp},
        {"not allowed yet", u"B"_s, reached(u"B"_s, u"unauthorized"_s, u"usb:1-2"_s), mtp, mtp},
        {"on the network too", u"B"_s, onNetwork, turbo, mtp},
        {"twins of one serial", u"A"_s, reached(u"A"_s, u"device"_s, u"usb:1-2"_s), mtp, turbo},
    };
    for (const auto& row : rows) {
        std::vector<DeviceInfo> phones{onBus(u"A"_s, u"1-1"_s), onBus(row.secondSerial, u"1-2"_s)};
        addADBPhones(phones, {row.device});
        ASSERT_EQ(phones.size(), 2u) << row.name;
        EXPECT_EQ(phones[0].protocolMode, row.first) << row.name;
        EXPECT_EQ(phones[1].protocolMode, row.second) << row.name;
    }
}

} // namespace
} // namespace tessary
