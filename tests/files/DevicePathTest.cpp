#include "files/DevicePath.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace tessary {
namespace {

struct NormalizeCase {
    const char* name;
    const char* given;
    const char* expected;
};

class NormalizePath : public testing::TestWithParam<NormalizeCase> {};

TEST_P(NormalizePath, mapsOntoTheStorage) {
    EXPECT_EQ(normalizePath(QString::fromUtf8(GetParam().given)),
              QString::fromUtf8(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(
    Paths, NormalizePath,
    testing::Values(NormalizeCase{"empty", "", "/"}, NormalizeCase{"onlyBlanks", " \t\r\n", "/"},
                    NormalizeCase{"root", "/", "/"}, NormalizeCase{"sdcard", "/sdcard", "/"},
                    NormalizeCase{"sdcardWithSlash", "/sdcard/", "/"},
                    NormalizeCase{"emulated", "/storage/emulated/0", "/"},
                    NormalizeCase{"emulatedWithSlash", "/storage/emulated/0/", "/"},
                    NormalizeCase{"blanksAround", "  /sdcard/DCIM/ \n", "/DCIM/"},
                    NormalizeCase{"belowEmulated", "/storage/emulated/0/DCIM/Camera",
                                  "/DCIM/Camera"},
                    NormalizeCase{"relative", "Music", "/Music"},
                    NormalizeCase{"blanksInside", "/My Music/a b", "/My Music/a b"},
                    NormalizeCase{"onlyOnePrefixIsDropped", "/sdcard/sdcard/x", "/sdcard/x"},
                    NormalizeCase{"longerName", "/sdcard2/x", "/sdcard2/x"},
                    NormalizeCase{"otherUser", "/storage/emulated/01", "/storage/emulated/01"},
                    NormalizeCase{"prefixInside", "/a/sdcard/x", "/a/sdcard/x"},
                    NormalizeCase{"otherStorage", "/storage/131073/x", "/storage/131073/x"}),
    [](const auto& row) { return row.param.name; });

TEST(DevicePath, blanksOfANameSurviveWithoutTrimming) {
    EXPECT_EQ(storageRelativePath(QStringLiteral("/sdcard/ a /b ")), QStringLiteral("/ a /b "));
}

TEST(DevicePath, joinsAndTakesApart) {
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

TEST(DevicePath, onlyAPlainNameIsSafe) {
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
