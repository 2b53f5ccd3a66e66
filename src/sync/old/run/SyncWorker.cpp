#include "sync/old/run/SyncWorker.h"

#include "base/text/ByteCount.h"
#include "base/threads/CancellationError.h"
#include "base/values/TessaryError.h"
#include "sync/old/plan/SyncPlanner.h"
#include "sync/old/run/SyncTemporaryCopy.h"

#include <algorithm>

namespace tessary {

namespace {

using Kind = SyncPlannedAction::Kind;

/// How often a file that changes while it is sent is sent again.
constexpr int maxSends = 3;

QString nameOf(const QString& path) {
    return path.mid(path.lastIndexOf(u'/') + 1);
}

QString folderOf(const QString& path) {
    return path.left(std::max<qsizetype>(0, path.lastIndexOf(u'/')));
}

bool isSame(const std::optional<SyncFileEntry>& now, const SyncFileEntry& before) {
    return now && now->size == before.size && now->modifiedDate == before.modifiedDate;
}

/// The same for a file of the device: a listing may have cut the date to a whole minute.
bool isSameOnDevice(const std::optional<SyncFileEntry>& now, const SyncFileEntry& before) {
    constexpr qint64 minute = 60'000;
    const qint64 listed = before.modifiedDate.toMSecsSinceEpoch();
    return isSame(now, before) ||
           (now && now->size == before.size && listed % minute == 0 &&
            now->modifiedDate.toMSecsSinceEpoch() / minute == listed / minute);
}

} // namespace

SyncWorker::SyncWorker(SyncRunSetup& setup, SyncRunEvents& events, QString remoteRoot,
                       SyncProgress& progress, std::stop_token stop)
    : setup_(setup),
      events_(events),
      root_(std::move(remoteRoot)),
      progress_(progress),
      stop_(std::move(stop)) {}

const QString& SyncWorker::changedMeanwhile() {
    static const QString text =
        QStringLiteral("it changed while the folders were being synced; it was left as it is");
    return text;
}

QString SyncWorker::remote(const QString& relativePath) const {
    return SyncRun::remotePath(root_, relativePath);
}

void SyncWorker::carryOut(const Action& action) {
    throwIfStopped(stop_);
    switch (action.kind) {
    case Kind::upload:
        upload(action);
        break;
    case Kind::download:
        download(action);
        break;
    case Kind::moveDeleteSourceOnly:
    case Kind::moveDeleteRemoteSourceOnly:
        deleteMovedSource(action);
        break;
    case Kind::alreadyInSync:
        enter(action.relativePath, *action.local, *action.device);
        return;
    case Kind::conflict:
        resolveConflict(action);
        break;
    case Kind::deleteLocal:
    case Kind::deleteRemote:
        deleteConfirmed(action);
        break;
    case Kind::leave:
    case Kind::skip:
        keepRecord(action);
        return;
    }
    endFile(action);
}

/// Notes a file that is the same on both sides.
void SyncWorker::enter(const QString& relativePath, const SyncFileEntry& local,
                       const SyncFileEntry& device) {
    SyncFileEntry entry{local.size, local.modifiedDate, {}, {}};
    constexpr qint64 second = 1000;
    if (local.modifiedDate.toMSecsSinceEpoch() / second !=
        device.modifiedDate.toMSecsSinceEpoch() / second)
        entry.deviceModifiedDate = device.modifiedDate;
    files_.insert_or_assign(relativePath, std::move(entry));
}

void SyncWorker::keepRecord(const Action& action) {
    if (action.kind == Kind::skip)
        skip(action.relativePath, action.detail);
    else if (setup_.pair.movesFiles())
        skip(action.relativePath,
             QStringLiteral("it was changed on the side that files are moved to; both are kept"));
    if (action.record == nullptr)
        return;
    SyncFileEntry entry = *action.record;
    if (action.knownToDiffer)
        entry.differingDate = setup_.pair.syncMode == SyncMode::toMac ? action.local->modifiedDate
                                                                      : action.device->modifiedDate;
    files_.insert_or_assign(action.relativePath, std::move(entry));
}

void SyncWorker::skip(const QString& relativePath, const QString& reason) {
    report_.skipped.push_back({relativePath, reason});
}

void SyncWorker::begin(const QString& stage, const QString& relativePath) {
    progress_.stage = stage;
    progress_.currentFileName = relativePath;
    progress_.currentFileBytes = 0;
    fileBytes_ = 0;
    if (events_.status)
        events_.status(stage);
    if (events_.progress)
        events_.progress(progress_);
}

FileProgressCallback SyncWorker::byteProgress() {
    return [this, before = fileBytes_](qint64 done, qint64) {
        progress_.currentFileBytes = before + std::max<qint64>(0, done);
        if (events_.progress)
            events_.progress(progress_);
    };
}

/// More is to be moved than was planned.
void SyncWorker::addBytes(qint64 bytes) {
    progress_.totalBytes = addByteCounts(progress_.totalBytes, bytes);
}

void SyncWorker::endFile(const Action& action) {
    progress_.currentFileBytes = 0;
    // What was skipped counts as done, too: the bar ends at its end.
    progress_.completedBytes =
        addByteCounts(progress_.completedBytes, std::max(fileBytes_, action.bytes()));
    ++progress_.completedFiles;
    if (events_.progress)
        events_.progress(progress_);
}

bool SyncWorker::isLocalAsScanned(const Action& action) {
    const auto now = setup_.local.stat(action.relativePath);
    return action.local == nullptr ? !now : isSame(now, *action.local);
}

bool SyncWorker::isDeviceAsScanned(const Action& action) {
    const auto now = setup_.device.statFile(remote(action.relativePath));
    return action.device == nullptr ? !now : isSameOnDevice(now, *action.device);
}

/// Copies a local file to the device, in place of what the scan saw there. Without a result it was
/// skipped: one of the two changed, or is gone.
std::optional<SyncWorker::Transferred> SyncWorker::send(const QString& relativePath,
                                                        const Action* replaced) {
    bool hasArrived = false;
    for (int attempt = 0; attempt < maxSends; ++attempt) {
        const auto before = setup_.local.stat(relativePath);
        const bool replaces = replaced != nullptr && replaced->device != nullptr;
        const bool isAsScanned = hasArrived || !replaces || isDeviceAsScanned(*replaced);
        if (!before || !isAsScanned) {
            skip(relativePath, changedMeanwhile());
            return std::nullopt;
        }
        std::optional<SyncFileEntry> arrived;
        try {
            arrived =
                setup_.device.uploadFile(setup_.local.pathOf(relativePath), remote(relativePath),
                                         replaces || hasArrived, byteProgress());
        } catch (const TessaryError&) {
            // A file that grows or shrinks on its way is refused.
            if (isSame(setup_.local.stat(relativePath), *before))
                throw;
            continue;
        }
        hasArrived = true;
        fileBytes_ += before->size;
        report_.transferredBytes += before->size;
        if (isSame(setup_.local.stat(relativePath), *before))
            return Transferred{*before, arrived, true};
        addBytes(before->size);
    }
    skip(relativePath, QStringLiteral("it changed again and again while it was being copied"));
    return std::nullopt;
}

void SyncWorker::fetch(const QString& relativePath, const QString& temporary, qint64 size) {
    setup_.device.downloadFile(remote(relativePath), temporary, size, byteProgress());
    fileBytes_ += size;
    report_.transferredBytes += size;
}

void SyncWorker::upload(const Action& action) {
    const QString& path = action.relativePath;
    begin(action.deletesSource ? QStringLiteral("Moving") : QStringLiteral("Uploading"), path);
    const auto sent = send(path, &action);
    if (!sent)
        return;
    if (!action.deletesSource) {
        report_.uploaded.append(path);
        toConfirm_.insert_or_assign(path, *sent);
        return;
    }
    const auto arrived = setup_.device.statFile(remote(path));
    if (!arrived || arrived->size != sent->local.size)
        throw TessaryError::fileIOError(
            QStringLiteral("The device does not show %1 as it was sent. It was not deleted here.")
                .arg(path));
    if (removeLocal(path, sent->local))
        report_.moved.append(path);
}

void SyncWorker::download(const Action& action) {
    const QString& path = action.relativePath;
    begin(action.deletesSource ? QStringLiteral("Moving") : QStringLiteral("Downloading"), path);
    const SyncTemporaryCopy copy(setup_.local, path);
    fetch(path, copy.path(), action.device->size);
    if (setup_.local.temporarySize(copy.path()) != action.device->size ||
        !isLocalAsScanned(action)) {
        skip(path, changedMeanwhile());
        return;
    }
    setup_.local.putInPlace(copy.path(), path, action.device->modifiedDate);
    const auto arrived = setup_.local.stat(path);
    if (!arrived || arrived->size != action.device->size)
        throw TessaryError::fileIOError(
            QStringLiteral("%1 is not on this computer's disk as it was received.").arg(path));
    if (!action.deletesSource) {
        report_.downloaded.append(path);
        toConfirm_.insert_or_assign(path, Transferred{*arrived, *action.device, false});
        return;
    }
    setup_.local.flush(path);
    if (removeRemote(path, *action.device))
        report_.moved.append(path);
}

/// The other side has the file already. Unless the record vouches for it, the contents decide.
void SyncWorker::deleteMovedSource(const Action& action) {
    const QString& path = action.relativePath;
    const bool fromHere = action.kind == Kind::moveDeleteSourceOnly;
    begin(QStringLiteral("Moving (already on destination)"), path);
    if (!action.isVouched) {
        addBytes(action.device->size);
        const SyncTemporaryCopy copy(setup_.local, path);
        fetch(path, copy.path(), action.device->size);
        if (!setup_.local.hasSameContent(path, copy.path(), stop_)) {
            skip(path, QStringLiteral("another file of this name, size and date is on the other "
                                      "side; both are kept"));
            return;
        }
    }
    const bool otherStays = fromHere ? isDeviceAsScanned(action) : isLocalAsScanned(action);
    if (!otherStays) {
        skip(path, changedMeanwhile());
        return;
    }
    if (!fromHere)
        setup_.local.flush(path);
    if (fromHere ? removeLocal(path, *action.local) : removeRemote(path, *action.device))
        report_.moved.append(path);
}

void SyncWorker::deleteConfirmed(const Action& action) {
    const QString& path = action.relativePath;
    const bool fromHere = action.kind == Kind::deleteLocal;
    const QString side = fromHere                  ? QStringLiteral("Mac")
                         : setup_.pair.isAndroid() ? QStringLiteral("Android")
                                                   : QStringLiteral("iPhone");
    begin(QStringLiteral("Removing %1 from %2").arg(nameOf(path), side), path);
    // It was to go because the other side had deleted it: it may be back by now.
    const bool isBack = fromHere ? !isDeviceAsScanned(action) : !isLocalAsScanned(action);
    if (isBack) {
        skip(path, changedMeanwhile());
        return;
    }
    if (fromHere ? removeLocal(path, *action.local) : removeRemote(path, *action.device))
        report_.deleted.append(path);
}

bool SyncWorker::removeLocal(const QString& relativePath, const SyncFileEntry& expected) {
    const auto now = setup_.local.stat(relativePath);
    if (now && !isSame(now, expected)) {
        skip(relativePath, changedMeanwhile());
        return false;
    }
    if (now)
        setup_.local.remove(relativePath);
    localEmptied_.insert(relativePath);
    return true;
}

bool SyncWorker::removeRemote(const QString& relativePath, const SyncFileEntry& expected) {
    const auto now = setup_.device.statFile(remote(relativePath));
    if (now && !isSameOnDevice(now, expected)) {
        skip(relativePath, changedMeanwhile());
        return false;
    }
    if (now)
        setup_.device.deleteRemoteFile(remote(relativePath));
    deviceEmptied_.insert(folderOf(relativePath));
    return true;
}

SyncFiles SyncWorker::finish() {
    for (const QString& path : localEmptied_)
        setup_.local.removeEmptyFoldersAbove(path);
    QStringList emptied(deviceEmptied_.begin(), deviceEmptied_.end());
    std::sort(emptied.begin(), emptied.end(),
              [](const QString& a, const QString& b) { return a.size() > b.size(); });
    for (const QString& folder : emptied)
        if (!folder.isEmpty())
            setup_.device.cleanupEmptyRemoteDirectories(remote(folder), remote({}));

    confirmTransfers();
    return std::move(files_);
}

/// Looks at the folders that files were copied to or from, each once: only what is the same on both
/// sides is recorded.
void SyncWorker::confirmTransfers() {
    std::map<QString, SyncScan> listings;
    for (const auto& [path, transferred] : toConfirm_) {
        throwIfStopped(stop_);
        const QString folder = folderOf(path);
        auto listing = listings.find(folder);
        if (listing == listings.end())
            listing = listings.emplace(folder, setup_.device.scanFolder(remote(folder))).first;
        const auto& there = listing->second.files;
        const auto found = there.find(nameOf(path));
        const bool hasSize = found != there.end() && found->second.size == transferred.local.size;
        if (hasSize && isAsTransferred(path, transferred, found->second))
            enter(path, transferred.local, found->second);
        else if (transferred.isSent && !hasSize)
            throw TessaryError::fileIOError(
                QStringLiteral("The device does not show %1 as it was sent. Sync again.")
                    .arg(path));
        else
            skip(path, changedMeanwhile());
    }
}

/// Whether a file of the size that was transferred is the one that was. Some phones date a file
/// once more after it has arrived: then the contents tell.
bool SyncWorker::isAsTransferred(const QString& relativePath, const Transferred& transferred,
                                 const SyncFileEntry& now) {
    if (!transferred.device || isSameOnDevice(now, *transferred.device))
        return true;
    if (!transferred.isSent)
        return false;
    const SyncTemporaryCopy copy(setup_.local, relativePath);
    setup_.device.downloadFile(remote(relativePath), copy.path(), now.size, byteProgress());
    return setup_.local.hasSameContent(relativePath, copy.path(), stop_);
}

} // namespace tessary
