#include "phone/DevicePath.h"
#include "mtp/files/MTPHandleCache.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

TEST(DevicePath, pathsAreMappedOntoTheStorage) {
    const std::pair<const char*, const char*> rows[] = {
        {"", "/"},
        {" \t\r\n", "/"},
        {"/sdcard", "/"},
        {"Music", "/Music"},
        {"/storage/emulated/0", "/"},
        {"  /sdcard/DCIM/ \n", "/DCIM/"},
        {"/storage/emulated/0/DCIM/Camera", "/DCIM/Camera"},
        {"/sdcard/sdcard/x", "/sdcard/x"}, // only one prefix is dropped
        {"/sdcard2/x", "/sdcard2/x"},
        {"/storage/emulated/01", "/storage/emulated/01"},
        {"/a/sdcard/x", "/a/sdcard/x"},
        {"/storage/131073/x", "/storage/131073/x"},
    };
    for (const auto& [given, expected] : rows)
        EXPECT_EQ(normalizePath(QString::fromUtf8(given)), QString::fromUtf8(expected)) << given;
    EXPECT_EQ(storageRelativePath(u"/sdcard/ a /b "_s), u"/ a /b "_s) << "names keep their blanks";
}

QString phone(const char* udid, const char* location) {
    return MTPHandleCache::deviceKey(QString::fromLatin1(udid), QString::fromLatin1(location));
}

MTPObjectKey key(const QString& device, const char* path, std::uint32_t storage = 1) {
    return {device, storage, QString::fromLatin1(path)};
}

class MTPHandleCacheTest : public testing::Test {
protected:
    [[nodiscard]] bool knows(const MTPObjectKey& entry) const {
        return cache_.find(entry).has_value();
    }

    MTPHandleCache cache_;
};

TEST_F(MTPHandleCacheTest, phonesPlacesAndStoragesShareNothing) {
    cache_.store(key(phone("A", "1-1"), "/DCIM"), 7);
    EXPECT_EQ(cache_.find(key(phone("A", "1-1"), "/DCIM")), 7U);
    EXPECT_FALSE(knows(key(phone("B", "1-1"), "/DCIM")));
    EXPECT_FALSE(knows(key(phone("A", "1-2"), "/DCIM")));
    EXPECT_FALSE(knows(key(phone("A", "1-1"), "/DCIM", 2)));
    EXPECT_FALSE(knows(key(phone("A", "1-1"), "/dcim")));
}

TEST_F(MTPHandleCacheTest, dropTakesWhatLiesBelowAndNothingBeside) {
    const QString device = phone("A", "1-1");
    for (const char* path : {"/a", "/a/b", "/a/b/c", "/ab", "/a b"})
        cache_.store(key(device, path), 1);
    cache_.store(key(device, "/a", 2), 1);
    cache_.drop(key(device, "/a"));
    for (const char* path : {"/a", "/a/b", "/a/b/c"})
        EXPECT_FALSE(knows(key(device, path))) << path;
    EXPECT_TRUE(knows(key(device, "/ab")));
    EXPECT_TRUE(knows(key(device, "/a b")));
    EXPECT_TRUE(knows(key(device, "/a", 2)));
}

TEST_F(MTPHandleCacheTest, unpluggingDropsThatPlaceAndThoseUnknown) {
    for (const char* location : {"1-1", "11-1", "1-11", "1-1.1", ""})
        cache_.store(key(phone("A", location), "/a"), 1);
    cache_.dropLocation(u"1-1"_s);
    EXPECT_FALSE(knows(key(phone("A", "1-1"), "/a")));
    EXPECT_FALSE(knows(key(phone("A", ""), "/a")));
    for (const char* location : {"11-1", "1-11", "1-1.1"})
        EXPECT_TRUE(knows(key(phone("A", location), "/a"))) << location;
}

} // namespace
} // namespace tessary
