#include "devices/AndroidDevices.h"
#include "support/QtPrinters.h"

#include <gmock/gmock.h>

#include <array>

namespace tessary {
namespace {

using testing::ElementsAre;

UsbDeviceEntry entryOf(std::uint16_t vendorID, const char* vendor, const char* product,
                       const char* serial = "", const char* location = "1-1",
                       std::uint64_t id = 1) {
    UsbDeviceEntry entry;
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

TEST(AndroidDevicesTest, everyKnownVendorIsAccepted) {
    for (const std::uint16_t vendor : std::initializer_list<std::uint16_t>{
             0x0E8D, 0x18D1, 0x04E8, 0x2717, 0x2A70, 0x12D1, 0x0FCE, 0x1004, 0x22B8, 0x0BB4, 0x05C6,
             0x283B, 0x2970, 0x0B05, 0x17EF, 0x1949, 0x2B0E, 0x0489, 0x1BBB, 0x2207, 0x1F3A}) {
        EXPECT_TRUE(extractAndroidDevice(entryOf(vendor, "", "Phone"))) << vendor;
        // A vendor is known by the whole number.
        EXPECT_FALSE(
            extractAndroidDevice(entryOf(static_cast<std::uint16_t>(vendor ^ 0x8000), "", "Phone")))
            << vendor;
    }
}

TEST(AndroidDevicesTest, everyExcludedWordOverridesKnownVendorsAndHints) {
    for (const char* word : {"Seagate", "Western Digital", "WD", "Apple", "Logitech", "VIA Labs",
                             "VIA Technologies", "Burr-Brown", "SayoDevice", "Compx", "Realtek",
                             "Intel", "Corsair", "Razer", "Kingston", "LaCie"}) {
        for (const QString& text : {QString::fromLatin1(word), QString::fromLatin1(word).toLower(),
                                    QString::fromLatin1(word).toUpper()}) {
            const QByteArray inside = '<' + text.toUtf8() + '>';
            EXPECT_FALSE(extractAndroidDevice(entryOf(knownVendor, inside, "Android")))
                << inside.constData();
            EXPECT_FALSE(extractAndroidDevice(entryOf(knownVendor, "Google", inside)))
                << inside.constData();
        }
    }
}

struct NameCase {
    const char* name;
    const char* vendor;
    const char* product;
    const char* registry;
    bool accepted;
};

void PrintTo(const NameCase& row, std::ostream* stream) {
    *stream << row.name;
}

class AndroidDevicesNameTest : public testing::TestWithParam<NameCase> {};

TEST_P(AndroidDevicesNameTest, hintsCountForUnknownVendors) {
    const NameCase& row = GetParam();
    UsbDeviceEntry entry = entryOf(unknownVendor, row.vendor, row.product);
    entry.registryName = QString::fromUtf8(row.registry);
    EXPECT_EQ(extractAndroidDevice(entry).has_value(), row.accepted);
}

INSTANTIATE_TEST_SUITE_P(
    names, AndroidDevicesNameTest,
    testing::Values(NameCase{"productAndroid", "Acme", "my ANDROID phone", "", true},
                    NameCase{"productHiBreak", "Acme", "hibreak pro", "", true},
                    NameCase{"productGalaxy", "Acme", "Galaxy S24", "", true},
                    NameCase{"vendorAndroidIsNoHint", "Android", "Acme", "", false},
                    NameCase{"vendorGalaxyIsNoHint", "Galaxy", "Acme", "", false},
                    NameCase{"vendorBigme", "BIGME", "B7", "", true},
                    NameCase{"productXiaomi", "Acme", "xiaomi 14", "", true},
                    NameCase{"vendorSamsung", "SAMSUNG Electronics", "SM-1", "", true},
                    NameCase{"productSamsung", "Acme", "Samsung", "", true},
                    NameCase{"vendorGoogle", "google inc.", "P7", "", true},
                    NameCase{"nothingKnown", "Acme", "Phone", "", false},
                    NameCase{"registryNameStandsInForTheProduct", "Acme", "", "Galaxy Tab", true},
                    NameCase{"registryNameIsNoHintBesideAProduct", "Acme", "Phone", "Galaxy Tab",
                             false},
                    NameCase{"registryNameExcludes", "Samsung", "", "Apple Hub", false},
                    // Without any name the product counts as "Android Device".
                    NameCase{"noName", "Acme", "", "", true}),
    [](const auto& row) { return row.param.name; });

TEST(AndroidDevicesTest, deviceHasTheNamesOfTheRegistry) {
    struct Row {
        const char* vendor;
        const char* registry;
        const char* name;
        const char* manufacturer;
    };
    for (const Row& row :
         {Row{"Google", "Pixel 7", "Google Pixel 7", "Google"},
          Row{"", "Pixel 7", "Pixel 7", "Android"}, Row{"Android", "Pixel 7", "Pixel 7", "Android"},
          Row{"android", "Pixel 7", "android Pixel 7", "android"},
          Row{"Google", "", "Google Android Device", "Google"},
          Row{"", "", "Android Device", "Android"}}) {
        UsbDeviceEntry entry = entryOf(knownVendor, row.vendor, "Product");
        entry.registryName = QString::fromUtf8(row.registry);
        const auto device = extractAndroidDevice(entry);
        ASSERT_TRUE(device);
        EXPECT_EQ(device->deviceName, QString::fromUtf8(row.name));
        EXPECT_EQ(device->manufacturer, QString::fromUtf8(row.manufacturer));
    }
}

TEST(AndroidDevicesTest, deviceStartsWithoutDetails) {
    const auto device =
        extractAndroidDevice(entryOf(knownVendor, "Google", "Pixel", "S1", "2-4.1"));
    ASSERT_TRUE(device);
    DeviceInfo expected;
    expected.udid = QStringLiteral("S1");
    expected.serialNumber = QStringLiteral("S1");
    expected.platform = DevicePlatform::android;
    expected.vendorId = 0x18D1;
    expected.productId = 0x4EE7;
    expected.protocolMode = ProtocolMode::mtp;
    expected.deviceName = QStringLiteral("Google Pixel");
    expected.manufacturer = QStringLiteral("Google");
    expected.usbLocation = QStringLiteral("2-4.1");
    EXPECT_TRUE(*device == expected);
    EXPECT_FALSE(device->isDataAccessible());
}

TEST(AndroidDevicesTest, missingSerialNumberIsReplacedByTheIdsInDecimal) {
    const auto device = extractAndroidDevice(entryOf(knownVendor, "Google", "Pixel"));
    ASSERT_TRUE(device);
    EXPECT_EQ(device->udid, QStringLiteral("USB-6353-20199"));
    EXPECT_EQ(device->serialNumber, QStringLiteral("USB-6353-20199"));
}

QStringList udidsOf(const std::vector<UsbDeviceEntry>& entries, const AttachedUdids& named = {}) {
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
        const QString base =
            *serial ? QString::fromLatin1(serial) : QStringLiteral("USB-6353-20199");
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
    const AttachedUdids named{{1, QStringLiteral("S")}, {2, QStringLiteral("S-1-2")}};
    EXPECT_THAT(udidsOf({second}, named), ElementsAre(QStringLiteral("S-1-2")));
    // A newcomer in front of the others takes no name from them.
    EXPECT_THAT(udidsOf({third, first, second}, named),
                ElementsAre(QStringLiteral("S-1-0"), QStringLiteral("S"), QStringLiteral("S-1-2")));
}

TEST(AndroidDevicesTest, serialNumberThatLooksLikeAnotherPhonesUdidStaysUnique) {
    const std::vector entries{entryOf(knownVendor, "", "A", "S", "1-1", 1),
                              entryOf(knownVendor, "", "A", "S-1-3", "1-2", 2),
                              entryOf(knownVendor, "", "A", "S", "1-3", 3)};
    EXPECT_THAT(udidsOf(entries), ElementsAre(QStringLiteral("S"), QStringLiteral("S-1-3"),
                                              QStringLiteral("S-1-3-1-3")));
}

TEST(AndroidDevicesTest, acceptedIdsOverrideEveryRule) {
    const std::vector entries{entryOf(0x46F4, "QEMU", "Acme"),
                              entryOf(unknownVendor, "Apple", "Hub")};
    EXPECT_TRUE(androidDevices(entries, {}).empty());
    const std::array ids{UsbIds{0x46F4, 0x4EE7}, UsbIds{unknownVendor, 0x4EE7},
                         UsbIds{0x46F4, 0x0001}};
    EXPECT_EQ(androidDevices(entries, ids).size(), 2U);
    EXPECT_TRUE(androidDevices(entries, std::span(ids).last(1)).empty());
}

} // namespace
} // namespace tessary
