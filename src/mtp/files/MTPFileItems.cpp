#include "mtp/files/MTPFileItems.h"

#include "base/text/ByteCount.h"
#include "base/text/PathNames.h"

namespace tessary {

bool isBelowStorage(const QString& path) {
    return path.trimmed().startsWith(QLatin1StringView("/storage/"));
}

FileItem fileItemOf(const MTPObjectInfo& info, const MTPLocation& folder, bool askedBelowStorage) {
    // Entries of different storages stay apart where their paths coincide.
    const QString identity =
        (askedBelowStorage ? QStringLiteral("/storage") : QStringLiteral("/sdcard")) +
        joinPath(folder.isRoot() ? QString() : folder.path, info.filename);
    const QString path = joinPath(folder.shownPath(), info.filename);
    const bool isFolder = info.isDirectory();
    return {info.filename,
            path,
            isFolder,
            isFolder ? 0 : clampedByteCount(info.effectiveSize()),
            info.dateModified,
            info.id,
            folder.prefix.isEmpty() ? identity : path};
}

StorageVolume volumeOf(const MTPStorageInfo& info) {
    const auto clamped = [](std::uint64_t bytes) {
        return static_cast<std::uint64_t>(clampedByteCount(bytes));
    };
    return {QString::number(info.id), info.storageDescription, clamped(info.maxCapacity),
            clamped(info.freeSpaceInBytes), info.isRemovable()};
}

} // namespace tessary
