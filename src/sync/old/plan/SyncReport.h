#pragma once

#include "base/local/LocalTree.h"
#include "sync/old/plan/SyncPair.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace tessary {

/// What a run did. Paths are relative.
struct SyncReport {
    QStringList uploaded;
    QStringList downloaded;
    QStringList deleted;
    QStringList moved;     ///< transferred or there already, and gone from their source
    QStringList conflicts; ///< the names of the losers' copies
    std::vector<SkippedItem> skipped;
    qint64 transferredBytes = 0;

    [[nodiscard]] bool hasChanges() const {
        return !uploaded.isEmpty() || !downloaded.isEmpty() || !deleted.isEmpty() ||
               !moved.isEmpty() || !conflicts.isEmpty();
    }
    /// "2 uploaded, 1 deleted, 1 skipped" or "Up to date".
    [[nodiscard]] QString summary() const;
};

/// One line of what a run would do.
struct SyncPreviewItem {
    enum class Kind { upload, download, move, conflict, remove, leave, skip };

    Kind kind = Kind::skip;
    bool toDevice = false; ///< of a transfer or move; of `remove`: it happens on the device
    QString relativePath;
    QString reason; ///< of `skip` and `leave`
    qint64 size = 0;

    bool operator==(const SyncPreviewItem&) const = default;
};

/// What a run would do, deletions as if they were confirmed.
struct SyncPreview {
    std::vector<SyncPreviewItem> items; ///< what is in sync aside
    qint64 inSync = 0;                  ///< files
    qint64 totalBytes = 0;              ///< to transfer, at least
    QString warning; ///< why the deletions look like a mistake; empty when they do not
};

/// What a run has to ask before it goes on.
struct SyncQuestion {
    enum class Kind { deletions, missingLocalFolder };

    Kind kind = Kind::deletions;
    std::vector<DeletionCandidate> candidates; ///< of `deletions`
    QString warning; ///< words for the user; of `deletions` empty unless they look like a mistake
};

} // namespace tessary
