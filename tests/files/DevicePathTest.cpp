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

} // namespace
} // namespace tessary
