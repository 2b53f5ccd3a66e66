#pragma once

#include "sync/pair/SyncPair.h"
#include "sync/plan/SyncManifest.h"
#include "sync/plan/SyncTree.h"

#include <QString>

#include <vector>

namespace tessary {

/// A file or folder that one side has under a name that differs only in case or in the form of its
/// letters from the one that it was synced by: the other side takes the new name.
struct SyncRename {
    bool onDevice = false; ///< the side that is to follow
    QString from;
    QString to; ///< in the same folder

    bool operator==(const SyncRename&) const = default;
};

/// The renames of a run, folders before what is in them. `local`, `device` and `record` are brought
/// to the state after them.
[[nodiscard]] std::vector<SyncRename> takeCaseRenames(SyncTree& local, SyncTree& device,
                                                      SyncFiles& record, SyncMode mode);

/// Brings `record` back to the state before a rename that was refused.
void takeBack(const SyncRename& rename, SyncFiles& record);

} // namespace tessary
