#pragma once

#include "phone/records/DeviceInfo.h"
#include "transfer/copy/TreeCopy.h"
#include "transfer/import/ImportLedger.h"
#include "transfer/import/ImportPlan.h"
#include "transfer/import/Photo.h"
#include "transfer/local/LocalFileSystem.h"

#include <functional>
#include <memory>
#include <vector>

namespace tessary {

/// The photos and films of a phone, and what was fetched of them before.
struct FoundPhotos {
    std::vector<Photo> photos; ///< newest first
    std::shared_ptr<ImportLedger> ledger;
    std::vector<UnreadableEntry> unreadable; ///< what could not be listed

    /// Those of which something was not fetched yet.
    [[nodiscard]] std::vector<Photo> newOnes() const;
};

/// Lists the camera folders of a phone. `from` is an Android phone by any way, or an iPhone's media
/// folder; of a device whose storages are not known yet they are asked for. `ledgers` is the folder
/// that ledgers are kept in. Blocking; throws what endsEverything(), LocalError for a ledger that
/// cannot be read, and CancellationError.
[[nodiscard]] FoundPhotos findPhotos(PhoneFileSystem& from, DeviceInfo device,
                                     const QString& ledgers,
                                     const std::function<void(std::size_t files)>& found,
                                     const Call& call);

/// The copy that carries a plan out: each file is compared by its hash, dated, and kept in the
/// ledger.
[[nodiscard]] TreeCopyRequest importRequest(std::shared_ptr<PhoneFileSystem> from,
                                            std::shared_ptr<LocalFileSystem> to, ImportPlan plan,
                                            std::shared_ptr<ImportLedger> ledger);

} // namespace tessary
