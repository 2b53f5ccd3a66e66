#include "ios/AFCFileInfo.h"
#include "ios/AppLister.h"
#include "ios/Lockdown.h"
#include "support/QtPrinters.h"

#include <QTimeZone>

#include <gtest/gtest.h>

#include <limits>
#include <utility>
#include <vector>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

TEST(DiskUsage, isReadInEachForm) {
    constexpr qint64 largest = std::numeric_limits<qint64>::max();
    const struct {
        const char* name;
        std::vector<std::pair<const char*, std::uint64_t>> values;
        std::optional<StorageInfo> expected;
    } rows[] = {
        {"whole disk",
         {{"TotalDiskCapacity", 100},
          {"TotalDataCapacity", 80},
          {"AmountDataAvailable", 30},
          {"TotalDataAvailable", 40}},
         StorageInfo{30, 100}},
        {"data only, and clamped",
         {{"TotalDataCapacity", 64'000'000'000}, {"TotalDataAvailable", 70'000'000'000}},
         StorageInfo{64'000'000'000, 64'000'000'000}},
        {"zero is not missing", {{"TotalDiskCapacity", 0}, {"TotalDataCapacity", 80}}, {}},
        {"no capacity", {{"AmountDataAvailable", 30}}, {}},
        {"above 63 bits",
         {{"TotalDiskCapacity", std::numeric_limits<std::uint64_t>::max()},
          {"AmountDataAvailable", std::uint64_t{1} << 63}},
         StorageInfo{largest, largest}},
    };
    for (const auto& row : rows) {
        const PlistHandle usage(plist_new_dict());
        for (const auto& [key, value] : row.values)
            plist_dict_set_item(usage.get(), key, plist_new_uint(value));
        EXPECT_EQ(storageFromDiskUsage(usage.get()), row.expected) << row.name;
    }
}

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
