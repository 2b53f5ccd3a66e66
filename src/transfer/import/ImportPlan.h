#pragma once

#include "phone/PhoneFileSystem.h"
#include "transfer/copy/CopyTypes.h"
#include "transfer/import/ImportLedger.h"
#include "transfer/import/Photo.h"

#include <vector>

namespace tessary {

/// Whether all files of a photo were fetched, whatever has become of the copies. Pure.
[[nodiscard]] bool isFetched(const Photo& photo, const ImportLedger& ledger);

struct ImportWishes {
    bool byDate = false; ///< a folder a year, and in it one a day: "2026/2026-10-31"
    bool again = false;  ///< photos that were fetched whole are fetched once more
};

/// What is to be fetched of some photos, into which folders and under which names.
struct ImportPlan {
    std::vector<CopyItem> items; ///< those of one folder stand together
    /// Files that are at the target, of the same name, size and date, though the ledger does not
    /// know of it: as after a power cut. They are not copied, only noted.
    std::vector<ImportRecord> alreadyHere;
    qint64 photos = 0; ///< of which something is copied
    qint64 bytes = 0;
};

/// Decides it by what is there. The files of one photo get one folder and, where a name is taken by
/// another file, one number, the one that its earlier files got: they stay together. Asks `to`
/// alone, and throws what it throws. `folder` may be missing yet.
[[nodiscard]] ImportPlan planImport(const std::vector<Photo>& photos, const ImportLedger& ledger,
                                    PhoneFileSystem& to, const QString& folder,
                                    const ImportWishes& wishes, const Call& call);

} // namespace tessary
