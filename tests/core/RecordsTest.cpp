#include "core/AppInfo.h"
#include "core/DeviceInfo.h"
#include "core/FileItem.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QLocale>
#include <QSet>
#include <QTimeZone>

#include <unordered_set>

namespace tessary {
namespace {

constexpr std::uint64_t gigabyte = 1'000'000'000;

DeviceInfo androidPhone() {
    DeviceInfo device;
    device.udid = QStringLiteral("R58M");
    device.platform = DevicePlatform::android;
    device.protocolMode = ProtocolMode::mtp;
    device.volumes = {{QStringLiteral("65537"), QStringLiteral("Internal Storage"), 64 * gigabyte,
                       16 * gigabyte, false}};
    return device;
}

FileItem file(const char* name, bool isDirectory = false) {
    return {QString::fromUtf8(name), QStringLiteral("/x"), isDirectory, 1500, std::nullopt};
}

class Records : public testing::Test {
protected:
    Records() {
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    }
};

TEST_F(Records, everyRawValueLeadsBackToItsCase) {
    for (const DevicePlatform platform : allDevicePlatforms)
        EXPECT_EQ(devicePlatformFromRawValue(rawValue(platform)), platform);
    for (const FileCategory category : allFileCategories)
        EXPECT_EQ(fileCategoryFromRawValue(rawValue(category)), category);
    for (const ProtocolMode mode : {ProtocolMode::afc, ProtocolMode::mtp, ProtocolMode::adbTurbo})
        EXPECT_EQ(protocolModeFromRawValue(rawValue(mode)), mode);
    EXPECT_EQ(connectionTypeFromRawValue(1), ConnectionType::usb);
    EXPECT_EQ(connectionTypeFromRawValue(2), ConnectionType::network);
}

TEST_F(Records, unknownRawValuesHaveNoCase) {
    for (const std::uint32_t raw : {0U, 3U, 0xFFFFFFFFU})
        EXPECT_FALSE(connectionTypeFromRawValue(raw)) << raw;
    for (const char* raw : {"Turbo Mode", "standard mtp", "", "Android", "Folder "}) {
        EXPECT_FALSE(protocolModeFromRawValue(QString::fromLatin1(raw))) << raw;
        EXPECT_FALSE(fileCategoryFromRawValue(QString::fromLatin1(raw))) << raw;
    }
    EXPECT_FALSE(devicePlatformFromRawValue(QStringLiteral("ios")));
}

TEST_F(Records, categoryFollowsTheLastExtensionOnly) {
    const struct {
        const char* name;
        FileCategory category;
        const char* extension;
    } rows[] = {
        {"photo.JPG", FileCategory::image, "jpg"},
        {"raw.dng", FileCategory::image, "dng"},
        {"scan.tiff", FileCategory::other, "tiff"},
        {"clip.3gp", FileCategory::video, "3gp"},
        {"stream.ts", FileCategory::code, "ts"},
        {"song.opus", FileCategory::audio, "opus"},
        {"REPORT.PDF", FileCategory::document, "pdf"},
        {"kernel.log", FileCategory::document, "log"},
        {"backup.tar.gz", FileCategory::archive, "gz"},
        {"game.xapk", FileCategory::apk, "xapk"},
        {"page.html", FileCategory::code, "html"},
        {"table.csv", FileCategory::other, "csv"},
        {"x.jpgx", FileCategory::other, "jpgx"},
        {"x.jp", FileCategory::other, "jp"},
        {"jpg", FileCategory::other, ""},
        {"ends in a dot.", FileCategory::other, ""},
        {".jpg", FileCategory::other, ""},
        {"..", FileCategory::other, ""},
        {"", FileCategory::other, ""},
        {"hostile.jpg/plain", FileCategory::other, ""},
        {"x.jpg mp3", FileCategory::other, "jpg mp3"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(file(row.name).category(), row.category) << row.name;
        EXPECT_EQ(file(row.name).fileExtension(), QString::fromLatin1(row.extension)) << row.name;
    }
}

TEST_F(Records, folderIsAFolderWhateverItsName) {
    const FileItem folder = file("holiday.jpg", true);
    EXPECT_EQ(folder.category(), FileCategory::folder);
    EXPECT_EQ(folder.iconName(), QStringLiteral("folder.fill"));
    EXPECT_EQ(folder.formattedSize(), QStringLiteral("--"));
    EXPECT_EQ(file("a.apk").iconName(), QStringLiteral("shippingbox.fill"));
    EXPECT_EQ(file("a.apk").formattedSize(), QStringLiteral("2 kB"));
}

TEST_F(Records, fileWithoutDateSortsAsTheEpoch) {
    FileItem item = file("a");
    EXPECT_EQ(item.modifiedDateOrEpoch(), QDateTime(QDate(1970, 1, 1), QTime(0, 0), Qt::UTC));
    item.modifiedDate = QDateTime(QDate(2024, 1, 31), QTime(12, 0), Qt::UTC);
    EXPECT_EQ(item.modifiedDateOrEpoch(), *item.modifiedDate);
}

TEST_F(Records, fileIdentityIsTheExplicitIdOrThePath) {
    const QString path = QStringLiteral("/DCIM");
    const FileItem plain(QStringLiteral("DCIM"), path, true, 0, std::nullopt);
    const FileItem sameId(QStringLiteral("DCIM"), path, true, 0, std::nullopt, std::nullopt, path);
    const FileItem otherId(QStringLiteral("DCIM"), path, true, 0, std::nullopt, 7,
                           QStringLiteral("65538:/DCIM"));
    EXPECT_EQ(plain.id(), sameId.id());
    EXPECT_NE(plain, sameId);
    EXPECT_NE(qHash(plain), qHash(sameId));
    EXPECT_EQ(otherId.id(), QStringLiteral("65538:/DCIM"));
}

TEST_F(Records, deviceIdNamesTheAttachment) {
    DeviceInfo device;
    device.udid = QStringLiteral("abc");
    device.handle = 7;
    EXPECT_EQ(device.id(), QStringLiteral("abc-7"));
    device.handle = 0xFFFFFFFF;
    EXPECT_EQ(device.id(), QStringLiteral("abc-4294967295"));
}

TEST_F(Records, anyChangedFieldMakesDevicesDiffer) {
    const DeviceInfo base = androidPhone();
    const std::pair<const char*, void (*)(DeviceInfo&)> changes[] = {
        {"udid", [](DeviceInfo& d) { d.udid += QLatin1Char('x'); }},
        {"platform", [](DeviceInfo& d) { d.platform = DevicePlatform::iOS; }},
        {"handle", [](DeviceInfo& d) { d.handle = 1; }},
        {"productId", [](DeviceInfo& d) { d.productId = 1; }},
        {"vendorId", [](DeviceInfo& d) { d.vendorId = 1; }},
        {"connectionType", [](DeviceInfo& d) { d.connectionType = ConnectionType::network; }},
        {"protocolMode", [](DeviceInfo& d) { d.protocolMode = ProtocolMode::adbTurbo; }},
        {"empty name", [](DeviceInfo& d) { d.deviceName = QString(); }},
        {"manufacturer", [](DeviceInfo& d) { d.manufacturer = QStringLiteral("Acme"); }},
        {"serialNumber", [](DeviceInfo& d) { d.serialNumber = QStringLiteral("1"); }},
        {"battery of 0", [](DeviceInfo& d) { d.batteryLevel = 0; }},
        {"isLocked", [](DeviceInfo& d) { d.isLocked = true; }},
        {"freeStorageBytes", [](DeviceInfo& d) { d.freeStorageBytes = 0; }},
        {"totalStorageBytes", [](DeviceInfo& d) { d.totalStorageBytes = 0; }},
        {"free space of a volume", [](DeviceInfo& d) { --d.volumes.front().freeBytes; }},
        {"volumes", [](DeviceInfo& d) { d.volumes.push_back(d.volumes.front()); }},
        {"usbLocation", [](DeviceInfo& d) { d.usbLocation = QStringLiteral("1-4"); }},
    };
    std::unordered_set<DeviceInfo> seen{base};
    for (const auto& [name, change] : changes) {
        DeviceInfo other = base;
        change(other);
        EXPECT_NE(other, base) << name;
        EXPECT_NE(qHash(other), qHash(base)) << name;
        EXPECT_TRUE(seen.insert(other).second) << name;
        EXPECT_FALSE(seen.insert(other).second) << name;
    }
}

TEST_F(Records, onlyUnlockedDevicesWithAStorageGiveData) {
    DeviceInfo iPhone;
    EXPECT_TRUE(iPhone.isDataAccessible());
    iPhone.isLocked = true;
    EXPECT_FALSE(iPhone.isDataAccessible());

    DeviceInfo android = androidPhone();
    EXPECT_TRUE(android.isDataAccessible());
    android.volumes.clear();
    EXPECT_FALSE(android.isDataAccessible());
}

TEST_F(Records, deviceSummaryClampsFreeToTotal) {
    DeviceInfo iPhone;
    EXPECT_EQ(iPhone.formattedStorageSummary(), std::nullopt);
    iPhone.freeStorageBytes = 5 * static_cast<qint64>(gigabyte);
    EXPECT_EQ(iPhone.formattedStorageSummary(), std::nullopt);
    iPhone.totalStorageBytes = 0;
    EXPECT_EQ(iPhone.formattedStorageSummary(), std::nullopt);
    iPhone.totalStorageBytes = 4 * static_cast<qint64>(gigabyte);
    EXPECT_EQ(iPhone.formattedStorageSummary(), QStringLiteral("4.00 GB free of 4.00 GB"));
}

TEST_F(Records, androidSummaryTakesTheFirstVolumeOnly) {
    DeviceInfo android = androidPhone();
    EXPECT_EQ(android.formattedStorageSummary(), QStringLiteral("16.00 GB free of 64.00 GB"));
    android.volumes.insert(android.volumes.begin(), StorageVolume{});
    EXPECT_EQ(android.formattedStorageSummary(), std::nullopt);
    // Without volumes the figures of the whole device count.
    android.volumes.clear();
    android.freeStorageBytes = android.totalStorageBytes = 1'000'000;
    EXPECT_EQ(android.formattedStorageSummary(), QStringLiteral("1.0 MB free of 1.0 MB"));
}

TEST_F(Records, volumeWithMoreFreeThanTotalIsShownAsItIs) {
    const StorageVolume volume{QStringLiteral("1"), QStringLiteral("Card"), 4 * gigabyte,
                               5 * gigabyte, true};
    EXPECT_EQ(volume.usedBytes(), 0);
    EXPECT_EQ(volume.usageRatio(), 0.0);
    EXPECT_EQ(volume.formattedFreeSpace(), QStringLiteral("5.00 GB free"));
    EXPECT_EQ(volume.formattedCapacity(), QStringLiteral("5.00 GB free of 4.00 GB"));

    const StorageVolume quarter{{}, {}, 4 * gigabyte, 3 * gigabyte, false};
    EXPECT_EQ(quarter.usedBytes(), static_cast<qint64>(gigabyte));
    EXPECT_EQ(quarter.usageRatio(), 0.25);
    EXPECT_EQ(StorageVolume{}.usageRatio(), 0.0);
}

TEST_F(Records, sizesAboveTheSignedRangeAreFatal) {
    const StorageVolume huge{{}, {}, std::uint64_t{1} << 63, 0, false};
    EXPECT_DEATH((void)huge.formattedCapacity(), "signed 64-bit");
    DeviceInfo device = androidPhone();
    device.volumes = {huge};
    EXPECT_DEATH((void)device.formattedStorageSummary(), "signed 64-bit");
}

TEST_F(Records, appIdentityIsItsBundle) {
    const AppInfo app{QStringLiteral("org.example.notes"), QStringLiteral("Notes"), true, false};
    AppInfo inPlace = app;
    inPlace.documentsInPlace = true;
    EXPECT_EQ(app.id(), inPlace.id());
    EXPECT_NE(app, inPlace);
    EXPECT_EQ((QSet<AppInfo>{app, inPlace, app}.size()), 2);
}

} // namespace
} // namespace tessary
