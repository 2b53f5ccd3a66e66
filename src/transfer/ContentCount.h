#pragma once

#include "phone/FileAccess.h"
#include "transfer/copy/ContentCount.h"

#include <functional>

namespace tessary {

/// Counts the content of entries on a device. Blocking; `progress` is called after each folder, on
/// the calling thread. A folder that cannot be read is counted as such and the count goes on; it
/// throws CancellationError alone.
[[nodiscard]] ContentCount countContent(FileAccess& files, const std::vector<FileItem>& items,
                                        const std::function<void(const ContentCount&)>& progress,
                                        const std::stop_token& stop);

} // namespace tessary
