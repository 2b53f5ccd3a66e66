#include "mtp/files/MTPSession.h"

#include "base/log/DiagnosticsLogger.h"
#include "base/threads/CancellationError.h"
#include "mtp/client/MTPUSBTransport.h"
#include "phone/DevicePath.h"

#include <QSet>
#include <QStringList>

#include <algorithm>

namespace tessary {

namespace {

/// Where some devices list the root of a storage that others list under 0xFFFFFFFF.
constexpr std::uint32_t alternativeRoot = 0;

bool isRootHandle(std::uint32_t handle) {
    return handle == mtpRootHandle || handle == alternativeRoot;
}

} // namespace

MTPDeviceAddress mtpAddressOf(const DeviceInfo& device) {
    MTPDeviceAddress address;
    address.vendorID = device.vendorId;
    address.productID = device.productId;
    // The substitute for a missing serial is not on the bus.
    if (const QString serial = device.serialNumber.value_or(QString());
        !serial.startsWith(QLatin1StringView("USB-")))
        address.serialNumber = serial;
    address.location = device.usbLocation;
    return address;
}

MTPSession::MTPSession(USBBus& bus, const DeviceInfo& device, MTPHandleCache& cache)
    : deviceKey_(MTPHandleCache::deviceKey(device.udid, device.usbLocation)),
      cache_(cache),
      client_(std::make_unique<MTPUSBTransport>(bus, mtpAddressOf(device))) {
    client_.openSession(1);
}

MTPSession::~MTPSession() {
    client_.closeSession();
}

const std::vector<std::uint32_t>& MTPSession::storageIDs() {
    if (!storageIDs_)
        storageIDs_ = client_.getStorageIDs();
    return *storageIDs_;
}

std::optional<MTPLocation> MTPSession::locate(const QString& path) {
    const std::vector<std::uint32_t>& storages = storageIDs();
    if (storages.empty())
        return std::nullopt;
    QStringList components = storageRelativePath(path).split(QLatin1Char('/'), Qt::SkipEmptyParts);
    MTPLocation location{storages.front(), {}, {}};
    if (components.size() >= 2 && components[0] == QLatin1StringView("storage")) {
        bool isNumber = false;
        const std::uint32_t wanted = components[1].toUInt(&isNumber);
        if (isNumber && std::find(storages.begin(), storages.end(), wanted) != storages.end()) {
            location.prefix = QStringLiteral("/storage/") + components[1];
            location.storageID = wanted;
            components.remove(0, 2);
        }
    }
    location.path = QLatin1Char('/') + components.join(QLatin1Char('/'));
    return location;
}

MTPObjectKey MTPSession::key(const MTPLocation& location) const {
    return {deviceKey_, location.storageID, location.path};
}

void MTPSession::forget(const MTPLocation& location, bool isFolder) {
    if (isFolder)
        cache_.drop(key(location));
    else
        cache_.dropFile(key(location));
}

void MTPSession::remember(const MTPLocation& location, std::uint32_t handle) {
    cache_.store(key(location), handle);
}

std::optional<MTPObjectInfo> MTPSession::confirm(std::uint32_t handle, const QString& name,
                                                 std::uint32_t storageID, std::uint32_t folder) {
    try {
        MTPObjectInfo info = client_.getObjectInfo(handle);
        // The roots of two storages have one handle: only the storage tells their entries apart.
        const bool sameFolder = info.parentObject == folder ||
                                (isRootHandle(folder) && isRootHandle(info.parentObject));
        if (info.filename == name && sameFolder && info.storageID == storageID)
            return info;
    } catch (const MTPTransportError& error) {
        if (!error.isProtocolFailure())
            throw;
    }
    return std::nullopt;
}

std::optional<MTPResolvedObject> MTPSession::resolve(const MTPLocation& location,
                                                     const std::stop_token& stop) {
    MTPResolvedObject object;
    MTPLocation at{location.storageID, QStringLiteral("/"), location.prefix};
    for (const QString& name : location.path.split(QLatin1Char('/'), Qt::SkipEmptyParts)) {
        if (!object.isDirectory())
            return std::nullopt;
        auto child = resolveChild(at, object.handle, name, std::nullopt, stop);
        if (!child)
            return std::nullopt;
        object = *std::move(child);
        at = at.child(name);
    }
    return object;
}

std::optional<MTPResolvedObject>
MTPSession::resolveChild(const MTPLocation& folder, std::uint32_t folderHandle, const QString& name,
                         std::optional<std::uint32_t> hint, const std::stop_token& stop) {
    const MTPLocation location = folder.child(name);
    const auto cached = cache_.find(key(location));
    std::optional<MTPObjectInfo> info;
    if (hint)
        info = confirm(*hint, name, folder.storageID, folderHandle);
    if (!info && cached && cached != hint) {
        info = confirm(*cached, name, folder.storageID, folderHandle);
        if (!info)
            forget(location);
    }
    if (!info)
        info = findChild(folder.storageID, folderHandle, name, stop);
    if (!info)
        return std::nullopt;
    remember(location, info->id);
    return MTPResolvedObject{info->id, std::move(info)};
}

std::vector<std::uint32_t> MTPSession::childHandles(std::uint32_t storageID, std::uint32_t folder) {
    if (folder != mtpRootHandle)
        return client_.getObjectHandles(storageID, folder);
    std::vector<std::uint32_t> handles;
    try {
        handles = client_.getObjectHandles(storageID, mtpRootHandle);
    } catch (const MTPTransportError& error) {
        if (!error.isProtocolFailure())
            throw;
    }
    return handles.empty() ? client_.getObjectHandles(storageID, alternativeRoot) : handles;
}

void MTPSession::forEachChild(std::uint32_t storageID, std::uint32_t folder,
                              const ChildVisitor& visit, const std::stop_token& stop,
                              const UnreadableVisitor& unreadable,
                              const std::function<bool(std::uint32_t)>& isKnown) {
    QSet<std::uint32_t> seen;
    for (const std::uint32_t handle : childHandles(storageID, folder)) {
        throwIfStopped(stop);
        if (handle == folder || seen.contains(handle))
            continue;
        seen.insert(handle);
        if (isKnown && isKnown(handle))
            continue;
        std::optional<MTPObjectInfo> info;
        try {
            info = client_.getObjectInfo(handle);
        } catch (const MTPTransportError& error) {
            if (!error.isProtocolFailure())
                throw;
            if (unreadable)
                unreadable(handle, error);
            else
                DiagnosticsLogger::shared().mtp.standard("MTP fetch notice: %s",
                                                         {error.description()});
            continue;
        }
        // A device that lists its root under 0 may mean every object of the storage by it.
        if (folder == mtpRootHandle && !isRootHandle(info->parentObject) &&
            seen.contains(info->parentObject))
            continue;
        if (!visit(std::move(*info)))
            return;
    }
}

MTPFolderContents MTPSession::look(const MTPLocation& folder, std::uint32_t handle,
                                   const std::stop_token& stop) {
    MTPFolderContents contents = cache_.takeFolder(key(folder)).value_or(MTPFolderContents(handle));
    // A device may give its handles anew.
    const MTPObjectInfo* sample = contents.any();
    if (contents.folder() != handle ||
        (sample && !confirm(sample->id, sample->filename, folder.storageID, handle)))
        contents = MTPFolderContents(handle);
    QSet<std::uint32_t> present;
    forEachChild(
        folder.storageID, handle,
        [&](MTPObjectInfo&& info) {
            contents.insert(info);
            return true;
        },
        stop,
        // Nobody knows its name, but it is there.
        [&](std::uint32_t unreadable, const MTPTransportError&) {
            contents.insertUnreadable(unreadable);
        },
        [&](std::uint32_t child) {
            present.insert(child);
            return contents.knows(child);
        });
    contents.keepOnly(present);
    return contents;
}

void MTPSession::keep(const MTPLocation& folder, const MTPFolderContents& contents) {
    cache_.storeFolder(key(folder), contents);
}

std::optional<MTPObjectInfo> MTPSession::findChild(std::uint32_t storageID, std::uint32_t folder,
                                                   const QString& name,
                                                   const std::stop_token& stop) {
    std::optional<MTPObjectInfo> found;
    forEachChild(
        storageID, folder,
        [&](MTPObjectInfo&& info) {
            if (info.filename == name)
                found = std::move(info);
            return !found;
        },
        stop);
    return found;
}

} // namespace tessary
