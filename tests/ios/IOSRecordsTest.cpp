#include "ios/AppLister.h"
#include "ios/LockdownSession.h"
#include "support/QtPrinters.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <limits>
#include <utility>
#include <vector>

namespace tessary {
namespace {

struct UsageCase {
    const char* name;
    std::vector<std::pair<const char*, std::uint64_t>> values;
    std::optional<StorageInfo> expected;
};

class DiskUsage : public testing::TestWithParam<UsageCase> {};

TEST_P(DiskUsage, isReadInEachForm) {
    const PlistHandle usage(plist_new_dict());
    for (const auto& [key, value] : GetParam().values)
        plist_dict_set_item(usage.get(), key, plist_new_uint(value));
    EXPECT_EQ(storageFromDiskUsage(usage.get()), GetParam().expected);
}

constexpr qint64 largest = std::numeric_limits<qint64>::max();

INSTANTIATE_TEST_SUITE_P(
    Forms, DiskUsage,
    testing::Values(
        UsageCase{"wholeDisk",
                  {{"TotalDiskCapacity", 100},
                   {"TotalDataCapacity", 80},
                   {"AmountDataAvailable", 30},
                   {"TotalDataAvailable", 40}},
                  StorageInfo{30, 100}},
        UsageCase{"dataOnlyAndClamped",
                  {{"TotalDataCapacity", 64'000'000'000}, {"TotalDataAvailable", 70'000'000'000}},
                  StorageInfo{64'000'000'000, 64'000'000'000}},
        UsageCase{"mixed",
                  {{"TotalDiskCapacity", 100}, {"TotalDataAvailable", 40}},
                  StorageInfo{40, 100}},
        UsageCase{"nothingFreeIsKnown", {{"TotalDiskCapacity", 100}}, StorageInfo{0, 100}},
        UsageCase{"zeroIsNotMissing", {{"TotalDiskCapacity", 0}, {"TotalDataCapacity", 80}}, {}},
        UsageCase{"noCapacity", {{"AmountDataAvailable", 30}}, {}}, UsageCase{"empty", {}, {}},
        UsageCase{"above63Bits",
                  {{"TotalDiskCapacity", std::numeric_limits<std::uint64_t>::max()},
                   {"AmountDataAvailable", std::uint64_t{1} << 63}},
                  StorageInfo{largest, largest}}),
    [](const auto& row) { return row.param.name; });

TEST(DiskUsage, whatIsNoDictionaryOfNumbersTellsNothing) {
    EXPECT_EQ(storageFromDiskUsage(nullptr), std::nullopt);
    const PlistHandle text(plist_new_string("100"));
    EXPECT_EQ(storageFromDiskUsage(text.get()), std::nullopt);
    const PlistHandle usage(plist_new_dict());
    plist_dict_set_item(usage.get(), "TotalDiskCapacity", plist_new_string("100"));
    EXPECT_EQ(storageFromDiskUsage(usage.get()), std::nullopt);
}

/// The installation proxy's answer, entry by entry.
class Answer {
public:
    Answer& add(const char* identifier, const char* displayName, const char* name,
                plist_t sharing) {
        plist_t entry = plist_new_dict();
        const auto put = [entry](const char* key, const char* text) {
            if (text != nullptr)
                plist_dict_set_item(entry, key, plist_new_string(text));
        };
        put("CFBundleIdentifier", identifier);
        put("CFBundleDisplayName", displayName);
        put("CFBundleName", name);
        if (sharing != nullptr)
            plist_dict_set_item(entry, "UIFileSharingEnabled", sharing);
        plist_array_append_item(array_.get(), entry);
        return *this;
    }
    [[nodiscard]] QStringList names() const {
        QStringList names;
        for (const AppInfo& app : AppLister::fileSharingAppsIn(array_.get()))
            names.append(app.displayName);
        return names;
    }
    [[nodiscard]] plist_t plist() const {
        return array_.get();
    }

private:
    PlistHandle array_{plist_new_array()};
};

plist_t yes() {
    return plist_new_bool(1);
}

TEST(AppLister, namesFallBackFromDisplayNameToNameToIdentifier) {
    Answer answer;
    answer.add("com.a", "Shown", "Bundle", yes())
        .add("com.b", "", "Bundle", yes())
        .add("com.c", nullptr, "Name", yes())
        .add("com.d", nullptr, nullptr, yes());
    EXPECT_EQ(answer.names(), QStringList({QStringLiteral("Bundle"), QStringLiteral("com.d"),
                                           QStringLiteral("Name"), QStringLiteral("Shown")}));
    EXPECT_EQ(AppLister::fileSharingAppsIn(answer.plist()).back(),
              (AppInfo{QStringLiteral("com.a"), QStringLiteral("Shown"), true, false}));
}

TEST(AppLister, onlyAppsThatShareFilesAndHaveAnIdentifierAreListed) {
    Answer answer;
    answer.add("com.a", "No", nullptr, plist_new_bool(0))
        .add("com.b", "Missing", nullptr, nullptr)
        .add("com.c", "Text", nullptr, plist_new_string("true"))
        .add(nullptr, "Nobody", nullptr, yes());
    plist_array_append_item(answer.plist(), plist_new_string("no dictionary"));
    EXPECT_EQ(answer.names(), QStringList());
    EXPECT_TRUE(AppLister::fileSharingAppsIn(nullptr).empty());
}

TEST(AppLister, sortsWithoutRegardToCase) {
    Answer answer;
    for (const char* name : {"banana", "cherry", "Apple", "éclair", "Zebra"})
        answer.add(name, name, nullptr, yes());
    EXPECT_EQ(answer.names(), QStringList({QStringLiteral("Apple"), QStringLiteral("banana"),
                                           QStringLiteral("cherry"), QStringLiteral("éclair"),
                                           QStringLiteral("Zebra")}));
}

} // namespace
} // namespace tessary
