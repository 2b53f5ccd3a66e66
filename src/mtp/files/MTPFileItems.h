#pragma once

#include "mtp/objects/MTPLocation.h"
#include "phone/records/FileItem.h"
#include "phone/records/StorageVolume.h"

namespace tessary {

// How objects and storages of a device look to everybody else. Pure.

/// Whether a path was asked for by the words "/storage/…", which entries keep in their identity.
[[nodiscard]] bool isBelowStorage(const QString& path);

/// An entry of a folder.
[[nodiscard]] FileItem fileItemOf(const MTPObjectInfo& info, const MTPLocation& folder,
                                  bool askedBelowStorage = false);
[[nodiscard]] StorageVolume volumeOf(const MTPStorageInfo& info);

} // namespace tessary
