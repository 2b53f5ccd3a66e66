#include "files/DevicePath.h"

#include <array>

namespace tessary {

namespace {

constexpr std::array storageRoots{QLatin1StringView("/sdcard"),
                                  QLatin1StringView("/storage/emulated/0")};
constexpr QLatin1Char slash('/');

QString withoutTrailingSlashes(QString path) {
    while (path.size() > 1 && path.endsWith(slash))
        path.chop(1);
    return path;
}

} // namespace

QString normalizePath(const QString& path) {
    return storageRelativePath(path.trimmed());
}

QString storageRelativePath(const QString& path) {
    QString result = path;
    for (const QLatin1StringView root : storageRoots) {
        if (result == root)
            return QString(slash);
        if (result.startsWith(root) && result.at(root.size()) == slash) {
            result.remove(0, root.size());
            break;
        }
    }
    return result.startsWith(slash) ? result : slash + result;
}

QString joinPath(const QString& folder, const QString& name) {
    return folder.endsWith(slash) ? folder + name : folder + slash + name;
}

QString parentPath(const QString& path) {
    const QString clean = withoutTrailingSlashes(path);
    const qsizetype last = clean.lastIndexOf(slash);
    return last <= 0 ? QString(slash) : clean.left(last);
}

QString lastComponent(const QString& path) {
    const QString clean = withoutTrailingSlashes(path);
    return clean.mid(clean.lastIndexOf(slash) + 1);
}

bool isSafeName(const QString& name) {
    return !name.isEmpty() && name != QLatin1StringView(".") && name != QLatin1StringView("..") &&
           !name.contains(slash) && !name.contains(QChar::Null);
}

} // namespace tessary
