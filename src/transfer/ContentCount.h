#pragma once

#include "phone/FileAccess.h"

#include <functional>

namespace tessary {

/// What lies in some entries: they themselves and all below them.
struct ContentCount {
    qint64 files = 0;
    qint64 folders = 0; ///< without the entries themselves
    qint64 bytes = 0;
    qint64 unreadable = 0; ///< folders that could not be listed, or lie too deep

    bool operator==(const ContentCount&) const = default;
};

/// Counts the content of entries on a device. Blocking; `progress` is called after each folder, on
/// the calling thread. A folder that cannot be read is counted as such and the count goes on; it
/// throws CancellationError alone.
[[nodiscard]] ContentCount countContent(FileAccess& files, const std::vector<FileItem>& items,
                                        const std::function<void(const ContentCount&)>& progress,
                                        const std::stop_token& stop);

} // namespace tessary
