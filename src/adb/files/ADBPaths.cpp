#include "adb/files/ADBPaths.h"

#include <algorithm>
#include <array>

namespace tessary {

namespace {

using View = QLatin1StringView;

constexpr QLatin1Char slash('/');
constexpr View card("/sdcard");

/// Folders at the top of Android's file tree.
constexpr std::array topFolders{
    View("sdcard"), View("storage"), View("mnt"),        View("data"), View("system"),
    View("vendor"), View("product"), View("odm"),        View("proc"), View("sys"),
    View("dev"),    View("etc"),     View("cache"),      View("apex"), View("config"),
    View("acct"),   View("oem"),     View("system_ext"),
};

} // namespace

QString androidPath(const QString& path) {
    QString clean = path;
    while (clean.endsWith(slash))
        clean.chop(1);
    if (clean.trimmed().isEmpty())
        return card;
    if (!clean.startsWith(slash))
        return card + slash + clean;
    const QString top = clean.section(slash, 1, 1);
    const bool isAndroids =
        std::find(topFolders.begin(), topFolders.end(), top) != topFolders.end();
    return isAndroids ? clean : card + clean;
}

} // namespace tessary
