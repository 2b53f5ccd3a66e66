#include "core/AFCError.h"
#include "core/ByteFormat.h"
#include "core/DeviceInfo.h"
#include "core/FileItem.h"
#include "core/PathNames.h"
#include "core/TransferProgress.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QLocale>

#include <limits>

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

TEST_F(Records, categoryFollowsTheLastExtensionOnly) {
    const struct {
        const char* name;
        FileCategory category;
        const char* extension;
    } rows[] = {
        {"photo.JPG", FileCategory::image, "jpg"},
        {"clip.3gp", FileCategory::video, "3gp"},
        {"stream.ts", FileCategory::code, "ts"},
        {"song.opus", FileCategory::audio, "opus"},
        {"REPORT.PDF", FileCategory::document, "pdf"},
        {"backup.tar.gz", FileCategory::archive, "gz"},
        {"game.xapk", FileCategory::apk, "xapk"},
        {"table.csv", FileCategory::other, "csv"},
        {"x.jpgx", FileCategory::other, "jpgx"},
        {"jpg", FileCategory::other, ""},
        {"ends in a dot.", FileCategory::other, ""},
        {".jpg", FileCategory::other, ""},
        {"", FileCategory::other, ""},
        {"hostile.jpg/plain", FileCategory::other, ""},
        {"x.jpg mp3", FileCategory::other, "jpg mp3"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(file(row.name).category(), row.category) << row.name;
        EXPECT_EQ(file(row.name, true).category(), FileCategory::folder) << row.name;
        EXPECT_EQ(file(row.name).fileExtension(), QString::fromLatin1(row.extension)) << row.name;
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

TEST_F(Records, storageSummaryClampsFreeAndTakesTheFirstVolume) {
    DeviceInfo iPhone;
    iPhone.freeStorageBytes = 5 * static_cast<qint64>(gigabyte);
    EXPECT_EQ(iPhone.formattedStorageSummary(), std::nullopt);
    iPhone.totalStorageBytes = 0;
    EXPECT_EQ(iPhone.formattedStorageSummary(), std::nullopt);
    iPhone.totalStorageBytes = 4 * static_cast<qint64>(gigabyte);
    EXPECT_EQ(iPhone.formattedStorageSummary(), QStringLiteral("4.00 GB free of 4.00 GB"));

    DeviceInfo android = androidPhone();
    EXPECT_EQ(android.formattedStorageSummary(), QStringLiteral("16.00 GB free of 64.00 GB"));
    android.volumes.insert(android.volumes.begin(), StorageVolume{});
    EXPECT_EQ(android.formattedStorageSummary(), std::nullopt);
}

TEST_F(Records, byteFormatPicksTheUnitAfterRounding) {
    const struct {
        qint64 bytes;
        const char* text;
    } rows[] = {
        {0, "0 bytes"},
        {999, "999 bytes"},
        {1'000, "1 kB"},
        {1'500, "2 kB"},
        {999'499, "999 kB"},
        {999'500, "1.0 MB"},
        {1'250'000, "1.3 MB"},
        {999'949'999, "999.9 MB"},
        {999'950'000, "1.00 GB"},
        {999'994'999'999, "999.99 GB"},
        {999'995'000'000, "1.00 TB"},
        {std::numeric_limits<qint64>::max(), "9.22 EB"},
        {-999'500, "-1.0 MB"},
        {std::numeric_limits<qint64>::min(), "-9.22 EB"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(formatBytes(row.bytes), QString::fromLatin1(row.text)) << row.bytes;
}

TEST_F(Records, byteFormatFollowsTheDefaultLocale) {
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(formatBytes(1'250'000'000), QStringLiteral("1,25 GB"));
    EXPECT_EQ(formatBytes(12), QStringLiteral("12 Bytes"));
}

TEST(AFCErrorText, namesTheCaseAndItsNumber) {
    const struct {
        std::int32_t status;
        const char* text;
    } rows[] = {
        {0, "AFC Error: success (code 0)"},        {1, "AFC Error: unknownError (code 1)"},
        {8, "AFC Error: objectNotFound (code 8)"}, {24, "AFC Error: unknownError (code 1)"},
        {30, "AFC Error: muxError (code 30)"},     {34, "AFC Error: sslError (code 34)"},
        {35, "AFC Error: unknownError (code 1)"},  {-1, "AFC Error: unknownError (code 1)"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(description(afcErrorFromStatus(row.status)), QString::fromLatin1(row.text))
            << row.status;
}

TEST_F(Records, neverShowsMoreDoneThanThereIs) {
    TransferProgress progress{10, 3, 4'000'000, 1'000'000, 500'000, 900'000};
    EXPECT_EQ(progress.fileCountDescription(), QStringLiteral("3/10 files"));
    EXPECT_EQ(progress.bytesDescription(), QStringLiteral("1.5 MB / 4.0 MB"));
    progress.completedFiles = 11;
    progress.completedBytes = 4'000'000;
    EXPECT_EQ(progress.fileCountDescription(), QStringLiteral("10/10 files"));
    EXPECT_EQ(progress.bytesDescription(), QStringLiteral("4.0 MB / 4.0 MB"));
}

TEST(PathNames, joinsAndTakesApart) {
    EXPECT_EQ(joinPath(QStringLiteral("/"), QStringLiteral("a")), QStringLiteral("/a"));
    EXPECT_EQ(joinPath(QStringLiteral("/a"), QStringLiteral("b")), QStringLiteral("/a/b"));
    EXPECT_EQ(joinPath(QStringLiteral("/a/"), QStringLiteral("b")), QStringLiteral("/a/b"));
    struct {
        const char* path;
        const char* parent;
        const char* last;
    } const rows[] = {{"/", "/", ""},        {"/a", "/", "a"},
                      {"/a/", "/", "a"},     {"/a/b.txt", "/a", "b.txt"},
                      {"/a/b//", "/a", "b"}, {"a", "/", "a"}};
    for (const auto& row : rows) {
        EXPECT_EQ(parentPath(QString::fromLatin1(row.path)), QString::fromLatin1(row.parent));
        EXPECT_EQ(lastComponent(QString::fromLatin1(row.path)), QString::fromLatin1(row.last));
    }
}

TEST(PathNames, onlyAPlainNameIsSafe) {
    for (const QString& name :
         {QString(), QStringLiteral("."), QStringLiteral(".."), QStringLiteral("a/b"),
          QStringLiteral("/"), QStringLiteral("../x"), QString(QChar::Null),
          QStringLiteral("a") + QChar::Null + QStringLiteral(".txt")})
        EXPECT_FALSE(isSafeName(name)) << testing::PrintToString(name);
    for (const QString& name :
         {QStringLiteral("..."), QStringLiteral(".hidden"), QStringLiteral(" "),
          QStringLiteral("a\\b"), QStringLiteral("a\nb"), QString(QChar(0xD800))})
        EXPECT_TRUE(isSafeName(name)) << testing::PrintToString(name);
}

} // namespace
} // namespace tessary
