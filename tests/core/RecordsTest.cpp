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
    const std::tuple<const char*, FileCategory, const char*> rows[] = {
        {"photo.JPG", FileCategory::image, "jpg"},
        {"stream.ts", FileCategory::code, "ts"},
        {"backup.tar.gz", FileCategory::archive, "gz"},
        {"x.jpgx", FileCategory::other, "jpgx"},
        {".jpg", FileCategory::other, ""},
        {"", FileCategory::other, ""},
        {"hostile.jpg/plain", FileCategory::other, ""},
        {"x.jpg mp3", FileCategory::other, "jpg mp3"},
    };
    for (const auto& [name, category, extension] : rows) {
        EXPECT_EQ(file(name).category(), category) << name;
        EXPECT_EQ(file(name, true).category(), FileCategory::folder) << name;
        EXPECT_EQ(file(name).fileExtension(), QString::fromLatin1(extension)) << name;
    }
}

TEST_F(Records, storageSummaryClampsFreeAndTakesTheFirstVolume) {
    DeviceInfo iPhone;
    iPhone.freeStorageBytes = 5 * static_cast<qint64>(gigabyte);
    EXPECT_EQ(iPhone.formattedStorageSummary(), std::nullopt);
    iPhone.totalStorageBytes = 4 * static_cast<qint64>(gigabyte);
    EXPECT_EQ(iPhone.formattedStorageSummary(), QStringLiteral("4.00 GB free of 4.00 GB"));

    DeviceInfo android = androidPhone();
    EXPECT_EQ(android.formattedStorageSummary(), QStringLiteral("16.00 GB free of 64.00 GB"));
    android.volumes.insert(android.volumes.begin(), StorageVolume{});
    EXPECT_EQ(android.formattedStorageSummary(), std::nullopt);
}

TEST_F(Records, byteFormatPicksTheUnitAfterRounding) {
    const std::pair<qint64, const char*> rows[] = {
        {0, "0 bytes"},
        {1'500, "2 kB"},
        {999'499, "999 kB"},
        {999'500, "1.0 MB"},
        {999'949'999, "999.9 MB"},
        {999'950'000, "1.00 GB"},
        {999'995'000'000, "1.00 TB"},
        {std::numeric_limits<qint64>::max(), "9.22 EB"},
        {std::numeric_limits<qint64>::min(), "-9.22 EB"},
    };
    for (const auto& [bytes, text] : rows)
        EXPECT_EQ(formatBytes(bytes), QString::fromLatin1(text)) << bytes;
}

TEST_F(Records, byteFormatFollowsTheDefaultLocale) {
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(formatBytes(1'250'000'000), QStringLiteral("1,25 GB"));
    EXPECT_EQ(formatBytes(12), QStringLiteral("12 Bytes"));
}

TEST(AFCErrorText, namesTheCaseAndItsNumber) {
    const std::pair<std::int32_t, const char*> rows[] = {
        {8, "AFC Error: objectNotFound (code 8)"}, {24, "AFC Error: unknownError (code 1)"},
        {34, "AFC Error: sslError (code 34)"},     {35, "AFC Error: unknownError (code 1)"},
        {-1, "AFC Error: unknownError (code 1)"},
    };
    for (const auto& [status, text] : rows)
        EXPECT_EQ(description(afcErrorFromStatus(status)), QString::fromLatin1(text));
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
