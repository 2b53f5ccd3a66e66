#pragma once

#include "phone/PhoneFileSystem.h"

#include <functional>
#include <vector>

namespace tessary {

/// What lies in some entries: they themselves and all below them.
struct ContentCount {
    qint64 files = 0;
    qint64 folders = 0; ///< without the entries themselves
    qint64 bytes = 0;
    qint64 unreadable = 0; ///< entries that could not be read or listed, or lie too deep

    bool operator==(const ContentCount&) const = default;
};

/// Counts the content of entries. Blocking; `progress` is called after each folder, on the calling
/// thread. A folder that cannot be read is counted as such and the count goes on; throws
/// CancellationError, and what endsEverything().
[[nodiscard]] ContentCount countContent(PhoneFileSystem& files, const std::vector<FileItem>& items,
                                        const std::function<void(const ContentCount&)>& progress,
                                        const Call& call);

} // namespace tessary
