#include "sync/plan/ConflictNames.h"

namespace tessary {

namespace {

/// File systems and phones hold no longer names, in bytes of UTF-8 and in UTF-16 units.
constexpr qsizetype longestName = 240;

const QLatin1StringView markBegin{" (conflict "};
const QLatin1StringView markDate{"yyyy-MM-dd HHmmss"};

/// A path around a mark in its name, as much of it as fits.
struct MarkedPath {
    QString begin;
    QString end;
};

MarkedPath aroundMark(const QString& path, const QString& mark) {
    const qsizetype nameAt = path.lastIndexOf(u'/') + 1;
    const QString name = path.mid(nameAt);
    const qsizetype dot = name.lastIndexOf(u'.');
    QString stem = dot > 0 ? name.left(dot) : name;
    QString extension = dot > 0 ? name.mid(dot) : QString();
    while ((stem + mark + extension).toUtf8().size() > longestName) {
        QString& longer = stem.size() >= extension.size() ? stem : extension;
        longer.chop(longer.back().isLowSurrogate() ? 2 : 1);
    }
    return {path.left(nameAt) + stem, extension};
}

} // namespace

ConflictNames::ConflictNames(const SyncTree& local, const SyncTree& device, const QDateTime& now)
    : local_(local), device_(device), mark_(markBegin + now.toString(markDate)) {}

QString ConflictNames::forPath(const QString& path) {
    for (int n = 1;; ++n) {
        const QString mark =
            mark_ + (n == 1 ? QString() : QLatin1Char(' ') + QString::number(n)) + QLatin1Char(')');
        const auto [begin, end] = aroundMark(path, mark);
        const QString copy = begin + mark + end;
        if (!given_.contains(copy) && !local_.contains(copy) && !device_.contains(copy)) {
            given_.insert(copy);
            return copy;
        }
    }
}

QStringList conflictCopiesOf(const QString& path, std::initializer_list<const SyncTree*> trees) {
    const auto [begin, end] = aroundMark(path, markBegin + markDate + QLatin1Char(')'));
    const QString start = begin + markBegin;
    QStringList copies;
    for (const SyncTree* tree : trees)
        for (auto it = tree->files.lower_bound(start);
             it != tree->files.end() && it->first.startsWith(start); ++it)
            if (it->first.endsWith(end) && !it->first.mid(start.size()).contains(u'/'))
                copies.append(it->first);
    copies.removeDuplicates();
    return copies;
}

} // namespace tessary
