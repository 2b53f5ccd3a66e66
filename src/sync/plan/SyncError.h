#pragma once

#include "base/values/Error.h"

namespace tessary {

/// What can go wrong with a sync, or keep it from one file. Arguments stand behind each case; paths
/// are relative to the pair's folders.
enum class SyncError {
    // --- one file is left as it is ---
    changedMeanwhile, ///< path: somebody changed it while the folders were being synced
    kindsDiffer,      ///< path: a file on one side and a folder on the other
    sameNames,        ///< path: another name differs only in case or in the form of its letters
    aboveUnknown,     ///< folder: what is in it is not known on one side
    notListed,        ///< path: its folder holds an entry that could not be read
    changedAtTarget,  ///< path: it was changed on the side that files are only copied to
    undecided,        ///< path: the user leaves it as it is
    sizeUnknown,      ///< path: the device does not tell its size
    twice,            ///< path: the device has several entries of this name
    tooDeep,          ///< path: a folder that seems to lie within itself
    // --- the run ends ---
    stopped,          ///< the user chose to change nothing
    folderMissing,    ///< local path: it was synced before and is gone
    sourceIsNoFolder, ///< path: something else stands where a pair's folder should be
    // --- the run went well, and yet ---
    recordNotStored, ///< path: the next run cannot tell what was deleted
};

[[nodiscard]] constexpr ErrorLayer errorLayer(SyncError) {
    return ErrorLayer::sync;
}
[[nodiscard]] const char* errorName(SyncError error);

} // namespace tessary
