#include "sync/plan/ConflictNames.h"

namespace tessary {

namespace {

/// File systems and phones hold no longer names, in bytes of UTF-8 and in UTF-16 units.
constexpr qsizetype longestName = 240;

} // namespace

ConflictNames::ConflictNames(const SyncTree& local, const SyncTree& device, const QDateTime& now)
    : local_(local),
      device_(device),
      mark_(QStringLiteral(" (conflict ") + now.toString(QStringLiteral("yyyy-MM-dd HHmmss"))) {}

bool ConflictNames::isTaken(const QString& path) const {
    if (given_.contains(path))
        return true;
    for (const SyncTree* side : {&local_, &device_})
        if (side->files.contains(path) || side->folders.contains(path) ||
            side->unknown.contains(path))
            return true;
    return false;
}

QString ConflictNames::forPath(const QString& path) {
    const qsizetype nameAt = path.lastIndexOf(u'/') + 1;
    const QString name = path.mid(nameAt);
    const qsizetype dot = name.lastIndexOf(u'.');
    QString stem = dot > 0 ? name.left(dot) : name;
    QString extension = dot > 0 ? name.mid(dot) : QString();
    for (int n = 1;; ++n) {
        const QString end =
            mark_ + (n == 1 ? QString() : QLatin1Char(' ') + QString::number(n)) + QLatin1Char(')');
        while ((stem + end + extension).toUtf8().size() > longestName) {
            QString& longer = stem.size() >= extension.size() ? stem : extension;
            longer.chop(longer.back().isLowSurrogate() ? 2 : 1);
        }
        const QString copy = path.left(nameAt) + stem + end + extension;
        if (!isTaken(copy)) {
            given_.insert(copy);
            return copy;
        }
    }
}

} // namespace tessary
