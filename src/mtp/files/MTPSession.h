#pragma once

#include "mtp/client/MTPClient.h"
#include "mtp/client/MTPInterfaceConnection.h"
#include "mtp/files/MTPHandleCache.h"
#include "mtp/objects/MTPLocation.h"
#include "phone/records/DeviceInfo.h"
#include "platform/usb/USBBus.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <vector>

namespace tessary {

/// How the transport finds a device.
[[nodiscard]] MTPDeviceAddress mtpAddressOf(const DeviceInfo& device);

/// One MTP session with one device, open from construction to destruction, with the path walking
/// that every operation shares. Used by one thread at a time; failures are MTPTransportError.
class MTPSession {
public:
    /// Called for each child; false ends the walk.
    using ChildVisitor = std::function<bool(MTPObjectInfo&&)>;
    /// Called for a child whose information cannot be read.
    using UnreadableVisitor = std::function<void(std::uint32_t handle, const MTPTransportError&)>;

    MTPSession(USBBus& bus, const DeviceInfo& device, MTPHandleCache& cache);
    ~MTPSession();
    MTPSession(const MTPSession&) = delete;
    MTPSession& operator=(const MTPSession&) = delete;

    [[nodiscard]] MTPClient& client() {
        return client_;
    }
    /// Asked of the device once a session. Empty while it is locked.
    [[nodiscard]] const std::vector<std::uint32_t>& storageIDs();

    /// The location of a path: on the first storage, or on the one that "/storage/<id>/" names.
    /// No value while the device offers no storage.
    [[nodiscard]] std::optional<MTPLocation> locate(const QString& path);

    /// The object at a location. Cached handles are used only when the device confirms name and
    /// parent; otherwise the folder is listed. No value when a component has no match.
    [[nodiscard]] std::optional<MTPResolvedObject> resolve(const MTPLocation& location,
                                                           const std::stop_token& stop);

    /// The same for one name in a folder whose handle is known; `hint` is a handle that it may
    /// have.
    [[nodiscard]] std::optional<MTPResolvedObject>
    resolveChild(const MTPLocation& folder, std::uint32_t folderHandle, const QString& name,
                 std::optional<std::uint32_t> hint, const std::stop_token& stop);

    /// The handles of a folder's children, as the device lists them.
    [[nodiscard]] std::vector<std::uint32_t> childHandles(std::uint32_t storageID,
                                                          std::uint32_t folder);

    /// Reads the information of each child of a folder, each handle once, but for those that
    /// `isKnown` says. Without `unreadable` a child that cannot be read is left out and logged; a
    /// broken connection always throws.
    void forEachChild(std::uint32_t storageID, std::uint32_t folder, const ChildVisitor& visit,
                      const std::stop_token& stop, const UnreadableVisitor& unreadable = {},
                      const std::function<bool(std::uint32_t)>& isKnown = {});

    /// What a folder holds. Of what was kept of it only the handles are asked again, and the
    /// information of one as a sample.
    [[nodiscard]] MTPFolderContents look(const MTPLocation& folder, std::uint32_t handle,
                                         const std::stop_token& stop);
    /// Keeps what is known of a folder for the next look.
    void keep(const MTPLocation& folder, const MTPFolderContents& contents);

    [[nodiscard]] std::optional<MTPObjectInfo> findChild(std::uint32_t storageID,
                                                         std::uint32_t folder, const QString& name,
                                                         const std::stop_token& stop);

    /// The object of a handle, when it is the one called `name` in that folder of that storage.
    [[nodiscard]] std::optional<MTPObjectInfo> confirm(std::uint32_t handle, const QString& name,
                                                       std::uint32_t storageID,
                                                       std::uint32_t folder);

    /// Drops a location and everything below it from the cache. What is no folder costs less.
    void forget(const MTPLocation& location, bool isFolder = true);
    /// Keeps a handle for the next time.
    void remember(const MTPLocation& location, std::uint32_t handle);

private:
    [[nodiscard]] MTPObjectKey key(const MTPLocation& location) const;

    const QString deviceKey_;
    MTPHandleCache& cache_;
    MTPClient client_;
    std::optional<std::vector<std::uint32_t>> storageIDs_;
};

} // namespace tessary
