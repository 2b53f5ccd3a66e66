#pragma once

#include "sync/pair/SyncPair.h"
#include "sync/plan/SyncManifest.h"
#include "sync/plan/SyncTree.h"

#include <QHash>
#include <QSet>
#include <QString>

#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace tessary {

/// Why something is not done: see SyncError, PhoneError and LocalError.
using SyncReason = std::shared_ptr<const Error>;

/// What a run is to do with one path. Points into the trees and the record that it was made from.
struct SyncPlannedAction {
    enum class Kind {
        upload,
        download,
        moveDeleteSourceOnly,       ///< the device has the same already: delete the local file
        moveDeleteRemoteSourceOnly, ///< the reverse
        alreadyInSync,
        conflict,     ///< compare whole; when they differ both are kept
        deleteLocal,  ///< confirmed
        deleteRemote, ///< confirmed
        leave,        ///< the mode does not let the change flow; the record stays
        skip,         ///< cannot be synced, see `reason`; the record stays
    };

    Kind kind = Kind::skip;
    bool deletesSource = false; ///< of a transfer or conflict: it is a move
    /// Of what is in sync, and of a move's deletion: the contents are known to be the same.
    bool isContentKnown = false;
    bool deviceWins = false; ///< of a conflict: the device's version keeps the name
    /// Of a conflict in two-way mode: a version without a record that is the beginning of the other
    /// one broke off on its way and loses, whatever its date.
    bool prefixLoses = false;
    bool knownToDiffer = false; ///< of `leave`: the contents were compared
    QString relativePath;
    QString conflictName;                  ///< of a conflict: the loser's copy
    SyncReason reason;                     ///< of `skip`
    const SyncFile* local = nullptr;       ///< null: not there
    const SyncFile* device = nullptr;      ///< null: not there
    const SyncFileEntry* record = nullptr; ///< null: none

    /// Whether a run does something for it.
    [[nodiscard]] bool isWork() const {
        return kind != Kind::alreadyInSync && kind != Kind::leave && kind != Kind::skip;
    }
    /// Bytes that it moves at least.
    [[nodiscard]] qint64 bytes() const;
};

/// One action a path, in the order of the paths.
struct SyncPlan {
    std::vector<SyncPlannedAction> actions;
    qint64 totalFiles = 0; ///< actions that are work
    qint64 totalBytes = 0;
    /// Files were looked at whose dates told nothing until now: the record is to be written.
    bool settlesDates = false;
};

/// Two files whose contents have to be compared whole before anything is decided.
enum class SyncComparison {
    equal,
    differing,
    asRecorded, ///< differing, and the one that has no date has the content that is recorded
    unreadable, ///< left as they are
};

/// What came of the comparisons that a planner asked for; a path that is missing is unreadable.
using SyncComparisons = std::map<QString, SyncComparison>;

/// What a user makes of one conflict.
enum class ConflictChoice { keepBoth, keepLocal, keepDevice, leave };

/// What makes a run look like a mistake, so that it needs the user's word.
struct SyncGuard {
    enum class Kind {
        nothing,
        localEmpty,    ///< the local folder is empty, and `recorded` files were in it
        deviceEmpty,   ///< the same of the device's folder
        manyDeletions, ///< `deletions` of the `recorded` files would go
    };

    Kind kind = Kind::nothing;
    qint64 recorded = 0;
    qint64 deletions = 0;

    bool operator==(const SyncGuard&) const = default;
};

/// What a user has decided for a run.
struct SyncDecisions {
    QSet<QString> deletions;                  ///< paths that may be deleted; no other one is
    QSet<QString> kept;                       ///< those that he was asked about and that stay
    QHash<QString, ConflictChoice> conflicts; ///< every other one is ConflictChoice::keepBoth
    SyncGuard::Kind guard = SyncGuard::Kind::nothing; ///< what he was warned of, and goes on
};

} // namespace tessary
