#include "phone/DevicePath.h"

#include <array>

namespace tessary {

namespace {

constexpr std::array storageRoots{QLatin1StringView("/sdcard"),
                                  QLatin1StringView("/storage/emulated/0")};
constexpr QLatin1Char slash('/');

} // namespace

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

} // namespace tessary
