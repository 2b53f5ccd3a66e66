#pragma once

#include "sync/run/SyncSide.h"

namespace tessary {

/// A file that both sides have, as it was seen.
struct SyncedFile {
    QString localPath; ///< relative
    SyncFile local;
    QString devicePath; ///< differs while a rename is only planned
    SyncFile device;
};

/// Whether both sides hold the same bytes, all of them looked at: by hash where the phone works one
/// out, else by reading the phone's until the first difference. Files of different sizes are
/// different.
[[nodiscard]] bool haveSameContent(SyncSide& local, SyncSide& device, const SyncedFile& file,
                                   const Call& call);

/// Whether the shorter of two files is how the longer begins: a copy that broke off.
[[nodiscard]] bool isOneBeginningOfOther(SyncSide& local, SyncSide& device, const SyncedFile& file,
                                         const Call& call);

} // namespace tessary
