#include "base/text/CopyNames.h"

#include <utility>

namespace tessary {

namespace {

/// The stem and the extension with its dot; a leading dot starts a hidden name.
std::pair<QString, QString> splitName(const QString& name) {
    const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
    return dot > 0 ? std::pair(name.left(dot), name.mid(dot)) : std::pair(name, QString());
}

} // namespace

QString freeCopyName(const QString& name, bool isFolder,
                     const std::function<bool(const QString&)>& isTaken) {
    const auto [stem, extension] = isFolder ? std::pair(name, QString()) : splitName(name);
    QString candidate = name;
    for (int n = 2; isTaken(candidate); ++n)
        candidate = stem + QStringLiteral(" (%1)").arg(n) + extension;
    return candidate;
}

} // namespace tessary
