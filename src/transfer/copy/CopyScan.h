#pragma once

#include "phone/PhoneFileSystem.h"
#include "transfer/copy/CopyTypes.h"

#include <vector>

namespace tessary {

/// One thing that is to be copied, with all that lies in it.
struct ScannedItem {
    CopyItem item;
    std::vector<ScannedItem> content{};
    std::optional<std::size_t> asked{}; ///< its place among what was asked for
};

/// What there is to copy.
struct CopyScan {
    std::vector<ScannedItem> items;
    std::vector<LeftOut> leftOut; ///< could not be read
    qint64 files = 0;
    qint64 folders = 0;
    qint64 bytes = 0;
};

/// Lists everything that is to be copied, files of ours left out. A folder that cannot be listed is
/// left out whole, so is one that lies too deep to be real. `progress` is called after each folder.
/// Throws CancellationError, and what endsEverything().
[[nodiscard]] CopyScan scanForCopy(PhoneFileSystem& files, const std::vector<CopyItem>& items,
                                   const std::function<void(const CopyScan&)>& progress,
                                   const Call& call);

} // namespace tessary
