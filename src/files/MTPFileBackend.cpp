#include "files/MTPFileBackend.h"

#include "core/CancellationError.h"
#include "core/DiagnosticsLogger.h"
#include "core/TessaryError.h"
#include "files/DevicePath.h"
#include "files/MTPDownload.h"
#include "files/MTPUpload.h"
#include "files/PhoneNames.h"

#include <algorithm>
#include <limits>
#include <thread>

namespace tessary {

namespace {

/// The location of a path, or an error that says what is missing.
MTPLocation requireLocation(MTPSession& session, const QString& path, const QString& noStorage) {
    if (const auto location = session.locate(path))
        return *location;
    throw TessaryError::fileIOError(noStorage);
}

const QString& noStorageText() {
    static const QString text = QStringLiteral("No storage available");
    return text;
}

struct Found {
    MTPLocation location;
    MTPResolvedObject object;
};

/// The object at a path; blanks around it count only when a name on the phone really has them.
Found find(MTPSession& session, const QString& path, const std::stop_token& stop,
           const QString& noStorage = noStorageText()) {
    for (const QString& candidate : {path, path.trimmed()}) {
        const MTPLocation location = requireLocation(session, candidate, noStorage);
        if (auto object = session.resolve(location, stop))
            return {location, *std::move(object)};
        if (candidate == path.trimmed())
            break;
    }
    throwNotOnPhone(path);
}

Found findFolder(MTPSession& session, const QString& path, const std::stop_token& stop,
                 const QString& noStorage = noStorageText()) {
    Found found = find(session, path, stop, noStorage);
    if (!found.object.isDirectory())
        throw TessaryError::fileIOError(QStringLiteral("%1 is not a folder.").arg(path));
    return found;
}

/// The object of an item, confirmed to be the one that the user saw. A name may be empty or hold
/// "/", so that the item's path alone does not tell the folder.
Found findItem(MTPSession& session, const FileItem& item, const std::stop_token& stop) {
    const QString ending = QLatin1Char('/') + item.name;
    const bool isEntry = item.path.endsWith(ending) && (item.handle || !item.name.isEmpty());
    if (!isEntry) {
        Found found = find(session, item.path, stop);
        const auto& info = found.object.info; // none: a storage, which has no name of its own
        if (info && (info->filename != item.name || info->isDirectory() != item.isDirectory))
            throwNotOnPhone(item.path);
        return found;
    }
    const Found folder =
        findFolder(session, item.path.chopped(ending.size()) + QLatin1Char('/'), stop);
    const MTPLocation location = folder.location.child(item.name);
    auto object =
        session.resolveChild(folder.location, folder.object.handle, item.name, item.handle, stop);
    if (!object || object->isDirectory() != item.isDirectory)
        throwNotOnPhone(item.path);
    return {location, *std::move(object)};
}

qint64 sizeOf(const MTPObjectInfo& info) {
    constexpr auto limit = static_cast<std::uint64_t>(std::numeric_limits<qint64>::max());
    return static_cast<qint64>(std::min(info.effectiveSize(), limit));
}

FileItem itemOf(const MTPObjectInfo& info, const MTPLocation& folder, bool askedBelowStorage) {
    // Entries of different storages stay apart where their paths coincide.
    const QString identity =
        (askedBelowStorage ? QStringLiteral("/storage") : QStringLiteral("/sdcard")) +
        joinPath(folder.isRoot() ? QString() : folder.path, info.filename);
    const QString path = joinPath(folder.shownPath(), info.filename);
    const bool isFolder = info.isDirectory();
    return {info.filename,
            path,
            isFolder,
            isFolder ? 0 : sizeOf(info),
            info.dateModified,
            info.id,
            folder.prefix.isEmpty() ? identity : path};
}

std::uint64_t clampToSigned(std::uint64_t bytes) {
    return std::min(bytes, static_cast<std::uint64_t>(std::numeric_limits<qint64>::max()));
}

StorageVolume volumeOf(const MTPStorageInfo& info) {
    return {QString::number(info.id), info.storageDescription, clampToSigned(info.maxCapacity),
            clampToSigned(info.freeSpaceInBytes), info.isRemovable()};
}

/// Deletes an object. A folder that the device won't delete whole is emptied first, deepest first;
/// what it lists there but says to be elsewhere stays.
void deleteObject(MTPSession& session, std::uint32_t storageID, const MTPObjectInfo& info,
                  int depth, const std::stop_token& stop) {
    constexpr int maxDepth = 128;
    throwIfStopped(stop);
    try {
        session.client().deleteObject(info.id);
        return;
    } catch (const MTPTransportError& error) {
        const bool mayHoldFiles =
            info.isDirectory() && error.isProtocolFailure() && depth < maxDepth;
        if (!mayHoldFiles)
            throw;
    }
    std::vector<MTPObjectInfo> children;
    session.forEachChild(
        storageID, info.id,
        [&](MTPObjectInfo&& child) {
            if (child.parentObject == info.id)
                children.push_back(std::move(child));
            return true;
        },
        stop);
    for (const MTPObjectInfo& child : children)
        deleteObject(session, storageID, child, depth + 1, stop);
    session.client().deleteObject(info.id);
}

} // namespace

MTPFileBackend::MTPFileBackend(UsbBus& bus)
    : bus_(bus), watch_(bus.watch([this](const UsbEvent& event) {
          if (event.kind == UsbEvent::Kind::detached)
              cache_.dropLocation(event.entry.location);
      })) {}

MTPFileBackend::~MTPFileBackend() = default;

std::shared_ptr<DeviceLane> MTPFileBackend::laneOf(const DeviceInfo& device) {
    const QString key = MTPHandleCache::deviceKey(device.udid, device.usbLocation);
    const std::scoped_lock lock(mutex_);
    std::shared_ptr<DeviceLane>& lane = lanes_[key];
    if (!lane)
        lane = std::make_shared<DeviceLane>();
    return lane;
}

/// A session that outlives one call, and the turn that it needs.
struct MTPFileBackend::Held {
    const std::thread::id owner = std::this_thread::get_id();
    const QString key;
    std::optional<DeviceLane::Turn> turn; ///< both below are the owner's
    std::unique_ptr<MTPSession> session;

    void close() {
        session.reset();
        turn.reset();
    }
};

std::shared_ptr<void> MTPFileBackend::hold(const DeviceInfo& device) {
    auto held = std::make_shared<Held>(
        Held{.key = MTPHandleCache::deviceKey(device.udid, device.usbLocation),
             .turn = {},
             .session = {}});
    const std::scoped_lock lock(mutex_);
    held_.push_back(held);
    return {held.get(), [this, held](void*) {
                {
                    const std::scoped_lock removeLock(mutex_);
                    std::erase(held_, held);
                }
                held->close();
            }};
}

std::shared_ptr<MTPFileBackend::Held> MTPFileBackend::heldHere(const DeviceInfo& device) {
    const QString key = MTPHandleCache::deviceKey(device.udid, device.usbLocation);
    const std::scoped_lock lock(mutex_);
    for (const auto& held : held_)
        if (held->owner == std::this_thread::get_id() && held->key == key)
            return held;
    return nullptr;
}

/// Runs `work(session, turn)` once nobody else uses the device: in the session that this thread
/// holds, or in one of its own.
template <typename Work>
void MTPFileBackend::withSession(const DeviceInfo& device, const std::stop_token& stop, Work work) {
    const auto held = heldHere(device);
    if (!held) {
        DeviceLane::Turn turn = laneOf(device)->enter(stop);
        throwIfStopped(stop);
        MTPSession session(bus_, device, cache_);
        work(session, turn);
        return;
    }
    try {
        if (!held->session) {
            held->turn.emplace(laneOf(device)->enter(stop));
            throwIfStopped(stop);
            held->session = std::make_unique<MTPSession>(bus_, device, cache_);
        }
        held->turn->letGuestsIn(*held->session);
        work(*held->session, *held->turn);
    } catch (const MTPTransportError& error) {
        if (!error.isProtocolFailure())
            held->close();
        throw;
    }
}

/// Runs `work(session)` in a session of its own, or in between two steps of whoever has one.
template <typename Work>
void MTPFileBackend::asGuest(const DeviceInfo& device, const std::stop_token& stop, Work work) {
    if (heldHere(device)) {
        withSession(device, stop, [&](MTPSession& session, DeviceLane::Turn&) { work(session); });
        return;
    }
    const auto turn = laneOf(device)->enterOrVisit(work, stop);
    if (!turn)
        return;
    MTPSession session(bus_, device, cache_);
    work(session);
}

std::vector<FileItem> MTPFileBackend::listDirectory(const QString& path, const DeviceInfo& device,
                                                    const std::stop_token& stop, ListingRule rule) {
    std::vector<FileItem> items;
    MTPSession::UnreadableVisitor unreadable;
    if (rule == ListingRule::checked)
        unreadable = [](std::uint32_t, const MTPTransportError& error) { throw error; };
    const bool askedBelowStorage = path.trimmed().startsWith(QLatin1StringView("/storage/"));
    asGuest(device, stop, [&](MTPSession& session) {
        if (session.storageIDs().empty()) {
            if (rule == ListingRule::checked)
                throw TessaryError::fileIOError(noStorageText());
            return;
        }
        const Found folder = findFolder(session, path, stop);
        session.forEachChild(
            folder.location.storageID, folder.object.handle,
            [&](MTPObjectInfo&& info) {
                session.remember(folder.location.child(info.filename), info.id);
                items.push_back(itemOf(info, folder.location, askedBelowStorage));
                return true;
            },
            stop, unreadable);
    });
    return items;
}

FileItem MTPFileBackend::itemAt(const QString& path, const DeviceInfo& device,
                                const std::stop_token& stop) {
    std::optional<FileItem> item;
    asGuest(device, stop, [&](MTPSession& session) {
        const Found found = find(session, path, stop);
        if (found.object.info) {
            MTPLocation folder = found.location;
            folder.path = parentPath(found.location.path);
            item = itemOf(*found.object.info, folder, false);
        } else {
            const MTPStorageInfo storage =
                session.client().getStorageInfo(found.location.storageID);
            item = FileItem(storage.storageDescription, found.location.shownPath(), true, 0,
                            std::nullopt);
        }
    });
    return *item;
}

std::optional<FileItem> MTPFileBackend::entryAt(const QString& path, const DeviceInfo& device,
                                                const std::stop_token& stop) {
    std::optional<FileItem> item;
    asGuest(device, stop, [&](MTPSession& session) {
        const MTPLocation location = requireLocation(session, path, noStorageText());
        const auto object = session.resolve(location, stop);
        if (!object || !object->info)
            return;
        MTPLocation folder = location;
        folder.path = parentPath(location.path);
        item = itemOf(*object->info, folder, false);
    });
    return item;
}

void MTPFileBackend::downloadFile(const FileItem& item, const QString& localFile,
                                  const DeviceInfo& device, const FileProgressCallback& progress,
                                  const std::stop_token& stop) {
    withSession(device, stop, [&](MTPSession& session, DeviceLane::Turn&) {
        if (session.storageIDs().empty())
            throw TessaryError::fileIOError(noStorageText());
        const Found found = findItem(session, item, stop);
        if (!found.object.info || found.object.isDirectory())
            throw TessaryError::fileIOError(QStringLiteral("No MTP handle for file ") + item.name);
        downloadObject(session, *found.object.info, localFile, progress, stop);
    });
}

TransferOutcome MTPFileBackend::downloadDirectory(const FileItem& item, const QString& localFolder,
                                                  const DeviceInfo& device,
                                                  const TransferProgressCallback& progress,
                                                  const std::stop_token& stop) {
    TransferOutcome outcome;
    withSession(device, stop, [&](MTPSession& session, DeviceLane::Turn& turn) {
        const Found found = findItem(session, item, stop);
        if (!found.object.isDirectory())
            throw TessaryError::fileIOError(QStringLiteral("%1 is not a folder.").arg(item.path));
        outcome = downloadFolder(session, turn, found.location, found.object.handle, localFolder,
                                 progress, stop);
    });
    return outcome;
}

void MTPFileBackend::uploadFile(const LocalSource& source, const QString& remoteParentPath,
                                const DeviceInfo& device, const FileProgressCallback& progress,
                                const std::stop_token& stop) {
    withSession(device, stop, [&](MTPSession& session, DeviceLane::Turn& turn) {
        const Found folder = findFolder(session, remoteParentPath, stop,
                                        QStringLiteral("No MTP storage found for upload"));
        MTPUpload(session, turn, stop)
            .file(source, folder.location, folder.object.handle, progress);
    });
}

void MTPFileBackend::uploadFile(const LocalSource& source, const QString& remoteParentPath,
                                const DeviceInfo& device, bool mayReplace, MTPUploadMemory& memory,
                                const FileProgressCallback& progress, const std::stop_token& stop) {
    withSession(device, stop, [&](MTPSession& session, DeviceLane::Turn& turn) {
        const Found folder = findFolder(session, remoteParentPath, stop,
                                        QStringLiteral("No MTP storage found for upload"));
        MTPUpload(session, turn, stop)
            .file(source, folder.location, folder.object.handle, mayReplace, memory, progress);
    });
}

TransferOutcome MTPFileBackend::uploadDirectory(const LocalSource& source,
                                                const QString& remoteParentPath,
                                                const DeviceInfo& device,
                                                const TransferProgressCallback& progress,
                                                const std::stop_token& stop) {
    TransferOutcome outcome;
    withSession(device, stop, [&](MTPSession& session, DeviceLane::Turn& turn) {
        const Found folder = findFolder(session, remoteParentPath, stop,
                                        QStringLiteral("No MTP storage found for upload"));
        outcome = MTPUpload(session, turn, stop)
                      .folder(source, folder.location, folder.object.handle, progress);
    });
    return outcome;
}

void MTPFileBackend::createFolder(const QString& name, const QString& parentPath,
                                  const DeviceInfo& device, const std::stop_token& stop) {
    requireNameForMTP(name);
    withSession(device, stop, [&](MTPSession& session, DeviceLane::Turn&) {
        const Found parent = findFolder(session, parentPath, stop);
        const std::uint32_t storageID = parent.location.storageID;
        if (session.findChild(storageID, parent.object.handle, name, stop))
            throw TessaryError::fileIOError(
                QStringLiteral("\"%1\" is already on the phone.").arg(name));
        session.client().createFolder(name, parent.object.handle, storageID);
    });
}

void MTPFileBackend::deleteFile(const FileItem& item, const DeviceInfo& device,
                                const std::stop_token& stop) {
    withSession(device, stop, [&](MTPSession& session, DeviceLane::Turn&) {
        const Found found = findItem(session, item, stop);
        if (!found.object.info)
            throw TessaryError::fileIOError(QStringLiteral("A whole storage cannot be deleted."));
        session.forget(found.location);
        deleteObject(session, found.location.storageID, *found.object.info, 0, stop);
    });
}

void MTPFileBackend::deleteEmptyFolder(const FileItem& item, const DeviceInfo& device,
                                       const std::stop_token& stop) {
    withSession(device, stop, [&](MTPSession& session, DeviceLane::Turn&) {
        const Found found = findItem(session, item, stop);
        // Phones delete what is in a folder along with it: looked at once more, right before.
        if (!found.object.info || !found.object.isDirectory() ||
            !session.childHandles(found.location.storageID, found.object.handle).empty())
            throw TessaryError::fileIOError(
                QStringLiteral("The phone did not delete %1.").arg(item.path));
        session.forget(found.location);
        session.client().deleteObject(found.object.handle);
    });
}

void MTPFileBackend::renameItem(const FileItem& item, const QString& newName,
                                const DeviceInfo& device, const std::stop_token& stop) {
    requireNameForMTP(newName);
    withSession(device, stop, [&](MTPSession& session, DeviceLane::Turn&) {
        const Found found = findItem(session, item, stop);
        if (!found.object.info)
            throw TessaryError::fileIOError(QStringLiteral("A whole storage cannot be renamed."));
        if (newName == item.name)
            return;
        // Some phones would put the item in the place of the one that has this name.
        const std::uint32_t parent = found.object.info->parentObject;
        if (session.findChild(found.location.storageID, parent == 0 ? mtpRootHandle : parent,
                              newName, stop))
            throw TessaryError::fileIOError(
                QStringLiteral("\"%1\" is already on the phone.").arg(newName));
        session.forget(found.location);
        session.client().renameObject(found.object.handle, newName);
    });
}

void MTPFileBackend::moveItem(const FileItem& item, const QString& newParentPath,
                              const DeviceInfo& device, const std::stop_token& stop) {
    withSession(device, stop, [&](MTPSession& session, DeviceLane::Turn&) {
        const Found found = findItem(session, item, stop);
        const Found target = findFolder(session, newParentPath, stop);
        if (!found.object.info)
            throw TessaryError::fileIOError(QStringLiteral("A whole storage cannot be moved."));
        if (target.location.storageID != found.location.storageID)
            throw TessaryError::fileIOError(
                QStringLiteral("The phone cannot move files from one storage to another. Copy "
                               "them instead."));
        const QString inside = found.location.path + QLatin1Char('/');
        if (target.location.path == found.location.path || target.location.path.startsWith(inside))
            throw TessaryError::fileIOError(
                QStringLiteral("A folder cannot be moved into itself."));
        if (session.findChild(target.location.storageID, target.object.handle, item.name, stop))
            throw TessaryError::fileIOError(
                QStringLiteral("\"%1\" is already there.").arg(item.name));
        session.forget(found.location);
        session.client().moveObject(found.object.handle, target.location.storageID,
                                    target.location.isRoot() ? 0 : target.object.handle);
    });
}

std::optional<LiveDeviceInfo> MTPFileBackend::fetchLiveDeviceInfo(const DeviceInfo& device) {
    constexpr int fullBattery = 100;
    LiveDeviceInfo info;
    const auto notice = [](const QString& text) {
        DiagnosticsLogger::shared().mtp.standard("Storage stats fetch notice: %s", {text});
    };
    const auto turn = laneOf(device)->tryEnter();
    if (!turn)
        return std::nullopt;
    try {
        MTPSession session(bus_, device, cache_);
        info.battery = session.client().getBatteryLevel();
        if (info.battery > fullBattery)
            info.battery.reset();
        for (const std::uint32_t id : session.storageIDs()) {
            try {
                info.volumes.push_back(volumeOf(session.client().getStorageInfo(id)));
            } catch (const MTPTransportError& error) {
                if (!error.isProtocolFailure())
                    throw;
                notice(error.description());
            }
        }
    } catch (const MTPTransportError& error) {
        notice(error.description());
    }
    return info;
}

} // namespace tessary
