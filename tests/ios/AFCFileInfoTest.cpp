#include "ios/AFCFileInfo.h"

#include "ios/AFCClient.h"
#include "support/QtPrinters.h"

#include <QTimeZone>

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace tessary {
namespace {

QDateTime utc(qint64 milliseconds) {
    return QDateTime::fromMSecsSinceEpoch(milliseconds, QTimeZone::utc());
}

struct InfoCase {
    const char* name;
    std::vector<const char*> texts;
    AFCFileInfo expected;
};

class FileInfo : public testing::TestWithParam<InfoCase> {};

TEST_P(FileInfo, isReadAsFarAsItMakesSense) {
    std::vector<const char*> texts = GetParam().texts;
    texts.push_back(nullptr);
    EXPECT_EQ(parseFileInfo(texts.data()), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Answers, FileInfo,
    testing::Values(
        InfoCase{"empty", {}, {}},
        InfoCase{"file",
                 {"st_size", "123", "st_blocks", "8", "st_nlink", "1", "st_ifmt", "S_IFREG",
                  "st_mtime", "1700000000123456789", "st_birthtime", "1"},
                 {false, false, 123, utc(1'700'000'000'123)}},
        InfoCase{"folder", {"st_ifmt", "S_IFDIR", "st_size", "64"}, {true, false, 64, {}}},
        InfoCase{"link", {"st_ifmt", "S_IFLNK", "LinkTarget", "/"}, {false, true, {}, {}}},
        InfoCase{"keyWithoutValue", {"st_size", "5", "st_ifmt"}, {false, false, 5, {}}},
        InfoCase{"ofADoubledKeyTheLastCounts",
                 {"st_size", "5", "st_ifmt", "S_IFDIR", "st_size", "6", "st_ifmt", "S_IFREG"},
                 {false, false, 6, {}}},
        InfoCase{"valueThatIsAKey", {"st_ifmt", "st_size", "7", "st_size"}, {}},
        InfoCase{"negativeSize", {"st_size", "-1"}, {}},
        InfoCase{"sizeWithSign", {"st_size", "+1"}, {}},
        InfoCase{"sizeWithBlank", {"st_size", " 1"}, {}},
        InfoCase{"sizeWithTail", {"st_size", "12kB"}, {}},
        InfoCase{"emptySize", {"st_size", ""}, {}},
        InfoCase{"sizeAbove63Bits",
                 {"st_size", "18446744073709551615"},
                 {false, false, std::numeric_limits<qint64>::max(), {}}},
        InfoCase{"sizeAbove64Bits", {"st_size", "18446744073709551616"}, {}},
        InfoCase{"latestTime",
                 {"st_mtime", "18446744073709551615"},
                 {false, false, {}, utc(18'446'744'073'709)}},
        InfoCase{"timeThatIsNone", {"st_mtime", "yesterday"}, {}}),
    [](const auto& row) { return row.param.name; });

TEST(FileInfo, noAnswerIsEmpty) {
    EXPECT_EQ(parseFileInfo(nullptr), AFCFileInfo{});
}

struct PathCase {
    const char* name;
    const char* root;
    const char* path;
    const char* expected;
};

class RemotePath : public testing::TestWithParam<PathCase> {};

TEST_P(RemotePath, resolvesAgainstTheWorkingRoot) {
    EXPECT_EQ(AFCClient::resolveRemotePath(QString::fromUtf8(GetParam().path),
                                           QString::fromUtf8(GetParam().root)),
              QString::fromUtf8(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(
    Paths, RemotePath,
    testing::Values(PathCase{"relative", "/Documents", "photos/a.jpg", "/Documents/photos/a.jpg"},
                    PathCase{"absolute", "/Documents", "/a.jpg", "/Documents/a.jpg"},
                    PathCase{"top", "/Documents", "/", "/Documents"},
                    PathCase{"below", "/Documents", "/Documents/x", "/Documents/x"},
                    PathCase{"rootItself", "/Documents", "/Documents", "/Documents"},
                    PathCase{"textPrefix", "/Documents", "/DocumentsOld", "/DocumentsOld"},
                    PathCase{"empty", "/Documents", "", "/Documents/"},
                    PathCase{"rootWithoutSlash", "Documents", "/a", "/Documents/a"},
                    PathCase{"plainRoot", "/", "photos/a.jpg", "photos/a.jpg"},
                    PathCase{"plainRootTop", "/", "/", "/"}, PathCase{"noRoot", "", "/a", "/a"}),
    [](const auto& row) { return row.param.name; });

} // namespace
} // namespace tessary
