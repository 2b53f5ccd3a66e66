#pragma once

#include "phone/records/DeviceInfo.h"
#include "phone/records/FileCategory.h"
#include "sync/pair/SyncPair.h"
#include "transfer/queue/CopyJob.h"

#include <QDate>
#include <QString>

namespace tessary {

// What values are called in the language of the interface. For the main thread.

/// "Folder", "Image" ...
[[nodiscard]] QString displayName(FileCategory category);
/// "Standard MTP" ...
[[nodiscard]] QString displayName(ProtocolMode mode);
/// "Upload" or "Download".
[[nodiscard]] QString displayName(CopyJob::Direction direction);
/// "Queued", "In Progress" ...
[[nodiscard]] QString displayName(CopyJob::Status status);
/// The name of a storage, or of the top of a tree of files: in the user's language where this
/// program gave it ("Internal Storage", "Documents"), as the phone says it otherwise.
[[nodiscard]] QString placeDisplayName(const QString& name);
/// "12 GB free of 64 GB". Never more free than there is; empty of a storage without a size.
[[nodiscard]] QString freeSpaceText(const StorageVolume& storage);
/// What a pair does: "Both ways", "Only to the phone", "Move to this computer" ...
[[nodiscard]] QString modeDisplayName(const SyncPair& pair);
/// Where a pair's folder lies on the phone: the app's or the storage's name, and
/// the folder.
[[nodiscard]] QString remoteDisplayPath(const SyncPair& pair);

/// "Today", "Yesterday", "Wednesday, 12 March 2025"; "No Date" for none.
[[nodiscard]] QString dayDisplayName(const QDate& day);

} // namespace tessary
