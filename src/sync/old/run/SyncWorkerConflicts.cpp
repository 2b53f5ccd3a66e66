// Files that were changed on both sides.

#include "base/values/TessaryError.h"
#include "sync/old/run/SyncTemporaryCopy.h"
#include "sync/old/run/SyncWorker.h"

namespace tessary {

void SyncWorker::resolveConflict(const Action& action) {
    const QString& path = action.relativePath;
    begin(QStringLiteral("Downloading"), path);
    const SyncTemporaryCopy copy(setup_.local, path);
    fetch(path, copy.path(), action.device->size);
    if (setup_.local.temporarySize(copy.path()) != action.device->size ||
        !isLocalAsScanned(action) || !isDeviceAsScanned(action)) {
        skip(path, changedMeanwhile());
        return;
    }
    if (setup_.local.hasSameContent(path, copy.path(), stop_)) {
        toConfirm_.insert_or_assign(path, Transferred{*action.local, *action.device, false});
        return;
    }
    if (action.deviceWins) {
        keepLoserHere(action);
        if (!isLocalAsScanned(action)) {
            skip(path, changedMeanwhile());
            return;
        }
        setup_.local.putInPlace(copy.path(), path, action.device->modifiedDate);
        if (const auto arrived = setup_.local.stat(path))
            toConfirm_.insert_or_assign(path, Transferred{*arrived, *action.device, false});
    } else {
        keepLoserOfDevice(action, copy.path());
        begin(QStringLiteral("Uploading"), path);
        addBytes(action.local->size);
        if (const auto sent = send(path, &action))
            toConfirm_.insert_or_assign(path, *sent);
    }
}

/// The local version, under its conflict name, on both sides.
void SyncWorker::keepLoserHere(const Action& action) {
    setup_.local.copyTo(action.relativePath, action.detail, stop_);
    sendLoser(action, action.local->size);
}

/// The device's version, which was fetched already, under its conflict name, on both sides.
void SyncWorker::keepLoserOfDevice(const Action& action, const QString& temporary) {
    setup_.local.putInPlace(temporary, action.detail, action.device->modifiedDate);
    sendLoser(action, action.device->size);
}

/// Copies the loser's copy here to the device.
void SyncWorker::sendLoser(const Action& action, qint64 bytes) {
    begin(QStringLiteral("Uploading"), action.detail);
    addBytes(bytes);
    const auto sent = send(action.detail);
    if (!sent)
        throw TessaryError::fileIOError(
            QStringLiteral("%1 changed while it was being copied. Sync again.").arg(action.detail));
    toConfirm_.insert_or_assign(action.detail, *sent);
    report_.conflicts.append(action.detail);
}

} // namespace tessary
