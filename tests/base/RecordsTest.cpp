#include "base/text/ByteFormat.h"
#include "base/text/PathNames.h"
#include "phone/records/FileItem.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QLocale>

#include <limits>

namespace tessary {
namespace {

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
        {"sensor.CR2", FileCategory::image, "cr2"},
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

TEST(PathNames, folderHoldsItselfAndWhatIsBelowIt) {
    for (const auto& [path, folder] : {std::pair("/a", "/a"),
                                       {"/a/b", "/a"},
                                       {"/a", "/a/"},
                                       {"/a", "/"},
                                       {"/", "/"},
                                       {"a/b/c", "a/b"},
                                       {"", ""}})
        EXPECT_TRUE(isAtOrBelow(QString::fromLatin1(path), QString::fromLatin1(folder)))
            << path << " in " << folder;
    for (const auto& [path, folder] :
         {std::pair("/ab", "/a"), {"/", "/a"}, {"/a", "/a/b"}, {"/a", ""}})
        EXPECT_FALSE(isAtOrBelow(QString::fromLatin1(path), QString::fromLatin1(folder)))
            << path << " in " << folder;
}

} // namespace
} // namespace tessary
