#pragma once

#include "phone/PhoneFileSystem.h"
#include "transfer/copy/CopyTypes.h"
#include "transfer/import/ImportLedger.h"
#include "transfer/import/Photo.h"

#include <functional>
#include <vector>

namespace tessary {

/// How a removal of fetched photos from a phone ended.
struct ImportRemoval {
    qint64 photos = 0; ///< that are gone from the phone
    qint64 files = 0;
    std::vector<LeftOut> leftOut; ///< files that stayed, and why
    std::optional<Error> failure; ///< the phone was lost
    bool isCancelled = false;
};

/// Removes photos from the phone that lie here whole. Of each file the copy that the ledger tells
/// of is read and compared by its hash first, and with the phone's file unless that was fetched
/// just now; one that was renamed in its folder is found again. A photo goes with all its files or
/// stays with all of them, and a file that is not any more what was seen stays. Blocking;
/// `progress` is called with the number of photos looked at.
[[nodiscard]] ImportRemoval removeImported(PhoneFileSystem& from, const std::vector<Photo>& photos,
                                           const ImportLedger& ledger,
                                           const std::function<void(qint64 photosDone)>& progress,
                                           const Call& call);

} // namespace tessary
