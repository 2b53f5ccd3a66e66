#pragma once

#include "base/values/Error.h"

namespace tessary {

/// What can go wrong with files of this computer. Arguments stand behind each case; a reason is the
/// system's own text.
enum class LocalError {
    cannotRead,       ///< path, reason
    cannotWrite,      ///< path, reason
    cannotMakeFolder, ///< path, reason
    cannotDelete,     ///< path, reason
    cannotRename,     ///< path, reason
    notFound,         ///< path
    notAFile,         ///< path: a folder, a pipe, a device
    notAFolder,       ///< path
    folderInTheWay,   ///< path: a folder has a file's name
    fileInTheWay,     ///< path: a file has a folder's name
    taken,            ///< path
    folderNotEmpty,   ///< path
    changed,          ///< path: it changed while it was being copied
    nameNotUsable,    ///< name: a local path cannot hold it
    nameTooLong,      ///< name
    leavesFolder,     ///< path: a link would lead out of the target folder
    link,             ///< path: links are not followed
    full,             ///< path: no space is left on its disk
    noRoomOnTheWay,   ///< path of a folder of ours: no space is left where files are on their way
    notPrivate,       ///< path of a folder that other users may change, or that is one of theirs
};

[[nodiscard]] constexpr ErrorLayer errorLayer(LocalError) {
    return ErrorLayer::local;
}
[[nodiscard]] const char* errorName(LocalError error);

} // namespace tessary
