#pragma once

#include "base/local/LocalSource.h"
#include "mtp/files/MTPSession.h"
#include "mtp/files/MTPUpload.h"
#include "phone/DeviceLane.h"
#include "phone/TransferOutcome.h"
#include "phone/records/DeviceInfo.h"
#include "phone/records/FileItem.h"
#include "phone/records/LiveDeviceInfo.h"
#include "platform/usb/USBBus.h"

#include <QHash>
#include <QString>

#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <vector>

namespace tessary {

/// What a listing does with an entry whose facts cannot be read.
enum class ListingRule {
    lenient, ///< leaves it out
    checked  ///< fails
};

/// File operations on Android devices over MTP. Each operation opens one session and closes it at
/// its end; those on one device take turns, and a listing or an edit that finds a folder transfer
/// running does its work between two files of it, on that transfer's session. Thread-safe and
/// blocking.
///
/// A path that does not resolve is TessaryError::fileIOError, wherever it is used. Failures of the
/// device are MTPTransportError, and CancellationError follows a stop request.
class MTPFileBackend {
public:
    /// `bus` must outlive the backend.
    explicit MTPFileBackend(USBBus& bus);
    ~MTPFileBackend();

    /// The children of a folder, in the device's order. Empty while the device offers no storage.
    /// A checked listing fails then.
    [[nodiscard]] std::vector<FileItem> listDirectory(const QString& path, const DeviceInfo& device,
                                                      const std::stop_token& stop,
                                                      ListingRule rule = ListingRule::lenient);
    /// The entry at a path; the root is a folder called after its storage.
    [[nodiscard]] FileItem itemAt(const QString& path, const DeviceInfo& device,
                                  const std::stop_token& stop);

    /// The same; no value when the device has storage and nothing at the path.
    [[nodiscard]] std::optional<FileItem> entryAt(const QString& path, const DeviceInfo& device,
                                                  const std::stop_token& stop);

    void downloadFile(const FileItem& item, const QString& localFile, const DeviceInfo& device,
                      const FileProgressCallback& progress, const std::stop_token& stop);
    /// Copies the content of a folder into `localFolder`.
    [[nodiscard]] TransferOutcome
    downloadDirectory(const FileItem& item, const QString& localFolder, const DeviceInfo& device,
                      const TransferProgressCallback& progress, const std::stop_token& stop);
    void uploadFile(const LocalSource& source, const QString& remoteParentPath,
                    const DeviceInfo& device, const FileProgressCallback& progress,
                    const std::stop_token& stop);
    /// The same for one of several files: each folder is listed once, and a file of that name is
    /// an error unless `mayReplace`.
    void uploadFile(const LocalSource& source, const QString& remoteParentPath,
                    const DeviceInfo& device, bool mayReplace, MTPUploadMemory& memory,
                    const FileProgressCallback& progress, const std::stop_token& stop);
    [[nodiscard]] TransferOutcome uploadDirectory(const LocalSource& source,
                                                  const QString& remoteParentPath,
                                                  const DeviceInfo& device,
                                                  const TransferProgressCallback& progress,
                                                  const std::stop_token& stop);

    void createFolder(const QString& name, const QString& parentPath, const DeviceInfo& device,
                      const std::stop_token& stop);
    /// Deletes a file or a folder with everything in it. The device is asked first whether the
    /// handle still names the item.
    void deleteFile(const FileItem& item, const DeviceInfo& device, const std::stop_token& stop);
    /// Deletes a folder, unless there is something in it.
    void deleteEmptyFolder(const FileItem& item, const DeviceInfo& device,
                           const std::stop_token& stop);
    void renameItem(const FileItem& item, const QString& newName, const DeviceInfo& device,
                    const std::stop_token& stop);
    /// Moves an item into another folder of the same storage.
    void moveItem(const FileItem& item, const QString& newParentPath, const DeviceInfo& device,
                  const std::stop_token& stop);

    /// Battery and storages. No value while something else uses the device: the figures that are
    /// known stay. Never throws; what cannot be read is logged and left out.
    [[nodiscard]] std::optional<LiveDeviceInfo> fetchLiveDeviceInfo(const DeviceInfo& device);

    /// Until the result goes, the calls of this thread for the device share one session, and the
    /// device waits for them; listings from elsewhere are let in between two calls. A call that
    /// loses the connection closes the session; the next one opens another.
    [[nodiscard]] std::shared_ptr<void> hold(const DeviceInfo& device);

private:
    struct Held;

    [[nodiscard]] std::shared_ptr<Held> heldHere(const DeviceInfo& device);
    [[nodiscard]] std::shared_ptr<DeviceLane> laneOf(const DeviceInfo& device);
    template <typename Work>
    void withSession(const DeviceInfo& device, const std::stop_token& stop, Work work);
    template <typename Work>
    void asGuest(const DeviceInfo& device, const std::stop_token& stop, Work work);
    template <typename Work>
    void asEditor(const DeviceInfo& device, const std::stop_token& stop, Work work);

    USBBus& bus_;
    MTPHandleCache cache_;
    std::mutex mutex_;
    QHash<QString, std::shared_ptr<DeviceLane>> lanes_; ///< guarded by mutex_
    std::vector<std::shared_ptr<Held>> held_;           ///< guarded by mutex_
    std::unique_ptr<USBWatch> watch_;                   ///< last: its callbacks use the cache
};

} // namespace tessary
