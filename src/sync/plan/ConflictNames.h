#pragma once

#include "sync/plan/SyncTree.h"

#include <QDateTime>
#include <QSet>
#include <QString>
#include <QStringList>

#include <initializer_list>

namespace tessary {

/// Names for the losers' copies of one run's conflicts: neither side has them, and no two are the
/// same.
class ConflictNames {
public:
    /// The trees must outlive it. `now` is in the zone that the names are to show.
    ConflictNames(const SyncTree& local, const SyncTree& device, const QDateTime& now);

    /// "dir/name (conflict 2024-05-01 101500).ext", numbered when that is taken, and shortened to
    /// what any file system holds.
    [[nodiscard]] QString forPath(const QString& path);

private:
    const SyncTree& local_;
    const SyncTree& device_;
    const QString mark_;
    QSet<QString> given_;
};

/// Files of the trees that are named as copies of a path's losers are, whichever run made them.
[[nodiscard]] QStringList conflictCopiesOf(const QString& path,
                                           std::initializer_list<const SyncTree*> trees);

} // namespace tessary
