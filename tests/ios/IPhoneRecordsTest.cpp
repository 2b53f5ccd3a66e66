#include "ios/AFCFileInfo.h"
#include "support/QtPrinters.h"

#include <QTimeZone>

#include <gtest/gtest.h>

#include <limits>
#include <utility>
#include <vector>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

QDateTime utc(qint64 milliseconds) {
    return QDateTime::fromMSecsSinceEpoch(milliseconds, QTimeZone::utc());
}

TEST(FileInfo, isReadAsFarAsItMakesSense) {
    constexpr qint64 largest = std::numeric_limits<qint64>::max();
    const struct {
        const char* name;
        std::vector<const char*> texts;
        AFCFileInfo expected;
    } rows[] = {
        {"file",
         {"st_size", "123", "st_blocks", "8", "st_nlink", "1", "st_ifmt", "S_IFREG", "st_mtime",
          "1700000000123456789", "st_birthtime", "1"},
         {false, false, true, 123, utc(1'700'000'000'123)}},
        {"folder", {"st_ifmt", "S_IFDIR", "st_size", "64"}, {true, false, false, 64, {}}},
        {"link", {"st_ifmt", "S_IFLNK", "LinkTarget", "/"}, {false, true, false, {}, {}}},
        {"value that is a key", {"st_ifmt", "st_size", "7", "st_size"}, {}},
        {"negative size", {"st_size", "-1"}, {}},
        {"size with a tail", {"st_size", "12kB"}, {}},
        {"size above 63 bits",
         {"st_size", "18446744073709551615"},
         {false, false, false, largest, {}}},
        {"size above 64 bits", {"st_size", "18446744073709551616"}, {}},
        {"latest time",
         {"st_mtime", "18446744073709551615"},
         {false, false, false, {}, utc(18'446'744'073'709)}},
        {"time that is none", {"st_mtime", "yesterday"}, {}},
    };
    for (const auto& row : rows) {
        std::vector<const char*> texts = row.texts;
        texts.push_back(nullptr);
        EXPECT_EQ(parseFileInfo(texts.data()), row.expected) << row.name;
    }
    EXPECT_EQ(parseFileInfo(nullptr), AFCFileInfo{});
}

} // namespace
} // namespace tessary
