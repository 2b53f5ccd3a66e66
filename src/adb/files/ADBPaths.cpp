#include "adb/files/ADBPaths.h"

#include "base/values/TessaryError.h"
#include "phone/DevicePath.h"

#include <QStringList>

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
constexpr std::array storageRoots{View("/sdcard"),           View("/storage"),
                                  View("/storage/emulated"), View("/storage/emulated/0"),
                                  View("/storage/self"),     View("/storage/self/primary")};

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

QString requireItemPath(const FileItem& item) {
    const QString path = androidPath(item.path);
    if (path.count(slash) < 2 ||
        std::find(storageRoots.begin(), storageRoots.end(), path) != storageRoots.end())
        throw TessaryError::fileIOError(
            QStringLiteral("A whole storage cannot be changed or copied as one item."));
    const QStringList components = path.split(slash);
    if (!isSafeName(item.name) || components.contains(QStringLiteral("..")) ||
        components.last() != item.name)
        throw TessaryError::fileIOError(
            QStringLiteral("The name \"%1\" cannot be used.").arg(item.name));
    return path;
}

} // namespace tessary
