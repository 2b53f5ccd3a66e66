#pragma once

#include "phone/PhoneFileSystem.h"
#include "transfer/copy/CopyTypes.h"

#include <memory>
#include <vector>

namespace tessary {

/// One thing that is to be copied, with all that lies in it.
struct ScannedItem {
    CopyItem item; ///< its folder is known only of what was asked for
    std::vector<ScannedItem> content{};
    std::optional<std::size_t> asked{};    ///< its place among what was asked for
    std::shared_ptr<const Error> unread{}; ///< why it could not be read, and is not counted
};

/// What there is to copy.
struct CopyScan {
    std::vector<ScannedItem> items;
    qint64 files = 0;
    qint64 folders = 0;
    qint64 bytes = 0;
};

/// Lists everything that is to be copied, files of ours left out. A folder that cannot be listed is
/// `unread` whole, so is one that lies too deep to be real. `progress` is called after each folder.
/// Throws CancellationError, and what endsEverything().
[[nodiscard]] CopyScan scanForCopy(PhoneFileSystem& files, const std::vector<CopyItem>& items,
                                   const std::function<void(const CopyScan&)>& progress,
                                   const Call& call);

} // namespace tessary
