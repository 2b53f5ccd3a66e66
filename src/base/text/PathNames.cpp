#include "base/text/PathNames.h"

#include <QFile>

namespace tessary {

namespace {

constexpr QLatin1Char slash('/');

/// Bytes of one component of a path, as file systems have it.
constexpr qsizetype longestLocalName = 255;

QString withoutTrailingSlashes(QString path) {
    while (path.size() > 1 && path.endsWith(slash))
        path.chop(1);
    return path;
}

} // namespace

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

bool isAtOrBelow(QStringView path, QStringView folder) {
    if (folder.isEmpty())
        return path.isEmpty();
    if (folder.endsWith(slash))
        folder.chop(1);
    return path.startsWith(folder) &&
           (path.size() == folder.size() || path[folder.size()] == slash);
}

bool isSafeName(const QString& name) {
    return !name.isEmpty() && name != QLatin1StringView(".") && name != QLatin1StringView("..") &&
           !name.contains(slash) && !name.contains(QChar::Null);
}

bool isTooLongName(const QString& name) {
    return QFile::encodeName(name).size() > longestLocalName;
}

} // namespace tessary
