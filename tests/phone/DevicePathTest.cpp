#include "phone/DevicePath.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

TEST(DevicePath, pathsAreMappedOntoTheStorage) {
    const std::pair<const char*, const char*> rows[] = {
        {"", "/"},
        {"/sdcard", "/"},
        {"Music", "/Music"},
        {"/storage/emulated/0", "/"},
        {"/sdcard/DCIM/", "/DCIM/"},
        {"/sdcard/ a /b ", "/ a /b "},
        {"/storage/emulated/0/DCIM/Camera", "/DCIM/Camera"},
        {"/sdcard/sdcard/x", "/sdcard/x"}, // only one prefix is dropped
        {"/sdcard2/x", "/sdcard2/x"},
        {"/storage/emulated/01", "/storage/emulated/01"},
        {"/a/sdcard/x", "/a/sdcard/x"},
        {"/storage/131073/x", "/storage/131073/x"},
    };
    for (const auto& [given, expected] : rows)
        EXPECT_EQ(storageRelativePath(QString::fromUtf8(given)), QString::fromUtf8(expected))
            << given;
}

} // namespace
} // namespace tessary
