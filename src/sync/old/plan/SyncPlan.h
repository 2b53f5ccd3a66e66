#pragma once

#include "sync/old/plan/SyncManifest.h"
#include "sync/old/plan/SyncPair.h"

#include <QString>

#include <vector>

namespace tessary {

/// What a run is to do with one path. Points into the scans and the record that it was made from.
struct SyncPlannedAction {
    enum class Kind {
        upload,
        download,
        moveDeleteSourceOnly,       ///< the device has the same already: delete the local file
        moveDeleteRemoteSourceOnly, ///< the reverse
        alreadyInSync,
        conflict,     ///< compare whole; when they differ keep both, the newer under the name
        deleteLocal,  ///< confirmed
        deleteRemote, ///< confirmed
        leave,        ///< the mode does not let the change flow; the record stays
        skip,         ///< cannot be synced, see `detail`; the record stays
    };

    Kind kind = Kind::skip;
    bool deletesSource = false; ///< of a transfer: it is a move
    bool isVouched = false;     ///< of a move's deletion: the record proves both sides equal
    bool deviceWins = false;    ///< of a conflict
    bool knownToDiffer = false; ///< of `leave`: the contents were compared
    QString relativePath;
    QString detail; ///< of a conflict the name of the loser's copy, of `skip` the reason
    const SyncFileEntry* local = nullptr;  ///< null: not there
    const SyncFileEntry* device = nullptr; ///< null: not there
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
};

} // namespace tessary
