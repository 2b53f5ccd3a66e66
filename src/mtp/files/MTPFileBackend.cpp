#include "mtp/files/MTPFileBackend.h"

#include "base/log/DiagnosticsLogger.h"
#include "base/text/ByteCount.h"
#include "base/threads/CancellationError.h"
#include "base/values/TessaryError.h"
#include "mtp/files/MTPDownload.h"
#include "mtp/files/MTPItems.h"
#include "mtp/files/MTPUpload.h"
#include "phone/DevicePath.h"
#include "phone/PhoneNames.h"

#include <algorithm>
#include <thread>

namespace tessary {

namespace {

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

/// Throws when a folder has an entry, other than `except`, that a name would clash with.
void requireFreeName(const MTPFolderContents& contents, const QString& name, const char* words,
                     std::uint32_t except = 0) {
    const auto taken = contents.sameName(name, except);
    if (!taken)
        return;
    if (*taken != name)
        throwSameToPhone(*taken, name);
    throw TessaryError::fileIOError(QString::fromLatin1(words).arg(name));
}

constexpr const char* alreadyOnPhone = "\"%1\" is already on the phone.";

} // namespace

MTPFileBackend::MTPFileBackend(USBBus& bus)
    : bus_(bus), watch_(bus.watch([this](const USBEvent& event) {
          if (event.kind == USBEvent::Kind::detached)
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

/// Runs `work(session)`, which changes files, in the session that this thread holds, in one of its
/// own, or in between two steps of whoever has one.
template <typename Work>
void MTPFileBackend::asEditor(const DeviceInfo& device, const std::stop_token& stop, Work work) {
    const auto held = heldHere(device);
    const auto lane = laneOf(device);
    const auto edit = [&](MTPSession& session) {
        lane->noteEdit();
        work(session);
    };
    try {
        if (!held || !held->session) {
            auto turn = lane->enterOrVisit(edit, stop);
            if (!turn)
                return;
            auto session = std::make_unique<MTPSession>(bus_, device, cache_);
            if (!held) {
                edit(*session);
                return;
            }
            held->turn.emplace(*std::move(turn));
            held->session = std::move(session);
        }
        held->turn->letGuestsIn(*held->session);
        edit(*held->session);
    } catch (const MTPTransportError& error) {
        if (held && !error.isProtocolFailure())
            held->close();
        throw;
    }
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
                throw TessaryError::fileIOError(noMTPStorageText());
            return;
        }
        const MTPFound folder = findMTPFolder(session, path, stop);
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
        const MTPFound found = findMTPObject(session, path, stop);
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
        const MTPLocation location = requireMTPLocation(session, path);
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
            throw TessaryError::fileIOError(noMTPStorageText());
        const MTPFound found = findMTPItem(session, item, stop);
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
        const MTPFound found = findMTPItem(session, item, stop);
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
        const MTPFound folder = findMTPFolder(session, remoteParentPath, stop,
                                              QStringLiteral("No MTP storage found for upload"));
        MTPUpload(session, turn, stop)
            .file(source, folder.location, folder.object.handle, progress);
    });
}

void MTPFileBackend::uploadFile(const LocalSource& source, const QString& remoteParentPath,
                                const DeviceInfo& device, bool mayReplace, MTPUploadMemory& memory,
                                const FileProgressCallback& progress, const std::stop_token& stop) {
    withSession(device, stop, [&](MTPSession& session, DeviceLane::Turn& turn) {
        const MTPFound folder = findMTPFolder(session, remoteParentPath, stop,
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
        const MTPFound folder = findMTPFolder(session, remoteParentPath, stop,
                                              QStringLiteral("No MTP storage found for upload"));
        outcome = MTPUpload(session, turn, stop)
                      .folder(source, folder.location, folder.object.handle, progress);
    });
    return outcome;
}

void MTPFileBackend::createFolder(const QString& name, const QString& parentPath,
                                  const DeviceInfo& device, const std::stop_token& stop) {
    requireNameForMTP(name);
    asEditor(device, stop, [&](MTPSession& session) {
        const MTPFound parent = findMTPFolder(session, parentPath, stop);
        const std::uint32_t storageID = parent.location.storageID;
        MTPFolderContents contents = session.look(parent.location, parent.object.handle, stop);
        requireFreeName(contents, name, alreadyOnPhone);
        session.client().createFolder(name, parent.object.handle, storageID);
        contents.insertName(name);
        session.keep(parent.location, contents);
    });
}

void MTPFileBackend::deleteFile(const FileItem& item, const DeviceInfo& device,
                                const std::stop_token& stop) {
    asEditor(device, stop, [&](MTPSession& session) {
        const MTPFound found = findMTPItem(session, item, stop);
        if (!found.object.info)
            throw TessaryError::fileIOError(QStringLiteral("A whole storage cannot be deleted."));
        session.forget(found.location, found.object.isDirectory());
        deleteMTPObject(session, found.location.storageID, *found.object.info, stop);
    });
}

void MTPFileBackend::deleteEmptyFolder(const FileItem& item, const DeviceInfo& device,
                                       const std::stop_token& stop) {
    asEditor(device, stop, [&](MTPSession& session) {
        const MTPFound found = findMTPItem(session, item, stop);
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
    asEditor(device, stop, [&](MTPSession& session) {
        const MTPFound found = findMTPItem(session, item, stop);
        if (!found.object.info)
            throw TessaryError::fileIOError(QStringLiteral("A whole storage cannot be renamed."));
        if (newName == item.name)
            return;
        // Some phones would put the item in the place of the one that has this name.
        const std::uint32_t parent = found.object.info->parentObject;
        MTPLocation folder = found.location;
        folder.path = parentPath(found.location.path);
        MTPFolderContents contents =
            session.look(folder, parent == 0 ? mtpRootHandle : parent, stop);
        requireFreeName(contents, newName, alreadyOnPhone, found.object.handle);
        session.forget(found.location, found.object.isDirectory());
        contents.remove(found.object.handle); // its name is asked again
        session.client().renameObject(found.object.handle, newName);
        session.keep(folder, contents);
    });
}

void MTPFileBackend::moveItem(const FileItem& item, const QString& newParentPath,
                              const DeviceInfo& device, const std::stop_token& stop) {
    asEditor(device, stop, [&](MTPSession& session) {
        const MTPFound found = findMTPItem(session, item, stop);
        const MTPFound target = findMTPFolder(session, newParentPath, stop);
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
        const MTPFolderContents contents =
            session.look(target.location, target.object.handle, stop);
        requireFreeName(contents, item.name, "\"%1\" is already there.");
        session.forget(found.location, found.object.isDirectory());
        session.client().moveObject(found.object.handle, target.location.storageID,
                                    target.location.isRoot() ? 0 : target.object.handle);
        session.keep(target.location, contents);
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
