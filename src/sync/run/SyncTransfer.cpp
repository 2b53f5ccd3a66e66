#include "sync/run/SyncTransfer.h"

#include "base/local/LocalError.h"
#include "base/text/PathNames.h"
#include "sync/plan/SyncError.h"
#include "transfer/copy/CopyErrors.h"
#include "transfer/copy/FileCopy.h"

#include <algorithm>

namespace tessary {

SyncTransfer::SyncTransfer(SyncSide& local, SyncSide& device, const SyncComputer& computer,
                           Call call)
    : local_(local), device_(device), computer_(computer), call_(std::move(call)) {}

FileItem SyncTransfer::copy(const Copy& copy, const ByteProgress& progress) {
    SyncSide& from = side(!copy.toDevice);
    SyncSide& to = side(copy.toDevice);
    const QString folder = to.makeFoldersAbove(copy.newPath, call_);
    const FileItem source = from.itemOf(copy.path, copy.seen);
    std::optional<FileItem> replaced;
    if (copy.replaced != nullptr)
        replaced = to.itemOf(copy.newPath, *copy.replaced);
    return copyFile({.from = from.files(),
                     .file = source,
                     .to = to.files(),
                     .folder = folder,
                     .name = lastComponent(copy.newPath),
                     .replaces = std::move(replaced),
                     .trash = copy.toDevice ? nullptr : computer_.trash},
                    progress, call_);
}

FileItem SyncTransfer::setAside(bool onDevice, const QString& path, const SyncFile& seen,
                                const QString& newPath, const ByteProgress& progress) {
    SyncSide& where = side(onDevice);
    if (!where.files().capabilities(call_).renames)
        return copyBeside(onDevice, path, seen, newPath, progress);
    const auto now = where.findFile(path, call_);
    if (!now || !isAsSeen(where.itemOf(path, seen), *now))
        throw changedError(where.files(), where.pathOf(path));
    return where.files().rename(*now, lastComponent(newPath), TakenName::refused, call_);
}

FileItem SyncTransfer::copyBeside(bool onDevice, const QString& path, const SyncFile& seen,
                                  const QString& newPath, const ByteProgress& progress) {
    SyncSide& where = side(onDevice);
    return copyFile({.from = where.files(),
                     .file = where.itemOf(path, seen),
                     .to = where.files(),
                     .folder = where.makeFoldersAbove(newPath, call_),
                     .name = lastComponent(newPath)},
                    progress, call_);
}

bool SyncTransfer::remove(bool onDevice, const QString& path, const SyncFile& seen,
                          bool intoTrash) {
    SyncSide& where = side(onDevice);
    const auto now = where.findFile(path, call_);
    if (!now)
        return false;
    if (!isAsSeen(where.itemOf(path, seen), *now))
        throw changedError(where.files(), where.pathOf(path));
    const bool isInTrash =
        intoTrash && !onDevice && computer_.trash && computer_.trash(where.pathOf(path));
    if (!isInTrash)
        where.files().remove(*now, call_);
    return true;
}

Error whySkipped(const Error& error, const QString& path) {
    const bool isChange = saysChanged(error) || isTaken(error) || error.is(PhoneError::notFound) ||
                          error.is(LocalError::notFound);
    return isChange ? Error(SyncError::changedMeanwhile, {path}, error) : error;
}

} // namespace tessary
