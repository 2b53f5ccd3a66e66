#pragma once

#include "adb/files/ADBFileBackend.h"
#include "base/local/LocalSource.h"
#include "mtp/files/MTPFileBackend.h"
#include "phone/records/DeviceInfo.h"
#include "phone/records/FileItem.h"
#include "phone/TransferOutcome.h"
#include "platform/process/ProcessRunner.h"
#include "platform/usb/USBBus.h"

#include <QSet>
#include <QString>

#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <thread>
#include <vector>

namespace tessary {

/// The one file interface over Android devices. Every call blocks and may come from any thread but
/// the one that draws; those on one device take turns. Failures are TessaryError and
/// MTPTransportError; a stop request ends a call with CancellationError. A call without a device
/// fails with `deviceNotFound`, only a listing is then empty.
///
/// A device in the mode `adbTurbo` is reached by the adb tool of this machine; in every other mode,
/// and where there is no such tool, over MTP.
///
/// Device paths are storage-relative and begin with "/"; "/sdcard" and "/storage/emulated/0" are
/// the root, "/storage/<id>" is the root of another storage over MTP. Over adb, Android's other
/// folders can be named as well ("/data/local/tmp"). Local paths are files of this machine.
class DeviceFileService {
public:
    /// The instance on this machine's USB bus. Made on first use, never released.
    [[nodiscard]] static DeviceFileService& shared();

    /// `bus` and `processes` must outlive the service. `adbPaths` is where adb is looked for,
    /// instead of the usual places.
    DeviceFileService(USBBus& bus, ProcessRunner& processes,
                      std::optional<QStringList> adbPaths = {});
    /// Waits for staging copies that are under way; they are cancelled.
    ~DeviceFileService();

    [[nodiscard]] std::vector<FileItem> listDirectory(const QString& at,
                                                      const std::optional<DeviceInfo>& device,
                                                      const std::stop_token& stop = {});
    /// The same, failing when an entry's facts cannot be read: what is not listed is not there.
    /// What can be no part of a copy (links, special files) is put into `skipped` instead.
    [[nodiscard]] std::vector<FileItem>
    listDirectoryChecked(const QString& at, const DeviceInfo& device,
                         const std::stop_token& stop = {},
                         std::vector<SkippedItem>* skipped = nullptr);
    /// The first bytes of a file, read by adb; TessaryError where there is none.
    [[nodiscard]] QByteArray readSampleBytes(const QString& path, qint64 maxBytes,
                                             const DeviceInfo& device,
                                             const std::stop_token& stop = {});
    /// The entry at a path; the root is a folder called after its storage.
    [[nodiscard]] FileItem itemAt(const QString& path, const std::optional<DeviceInfo>& device,
                                  const std::stop_token& stop = {});

    /// The same; no value when nothing is at the path.
    [[nodiscard]] std::optional<FileItem> entryAt(const QString& path, const DeviceInfo& device,
                                                  const std::stop_token& stop = {});

    /// Copies a file to `to`, a path that ends in the new file's name. The file appears whole,
    /// with the phone's date, or not at all; an older one is replaced.
    void downloadFile(const FileItem& item, const QString& to,
                      const std::optional<DeviceInfo>& device,
                      const FileProgressCallback& progress = {}, const std::stop_token& stop = {});
    /// Copies a folder into the local folder `to`, under its own name.
    [[nodiscard]] TransferOutcome downloadDirectory(const FileItem& item, const QString& to,
                                                    const std::optional<DeviceInfo>& device,
                                                    const TransferProgressCallback& progress = {},
                                                    const std::stop_token& stop = {});
    /// Copies a folder's content into `localFolder`, which is made when it is missing.
    [[nodiscard]] TransferOutcome downloadDirectoryContents(
        const FileItem& item, const QString& localFolder, const std::optional<DeviceInfo>& device,
        const TransferProgressCallback& progress = {}, const std::stop_token& stop = {});
    void uploadFile(const LocalSource& source, const QString& remoteParentPath,
                    const std::optional<DeviceInfo>& device,
                    const FileProgressCallback& progress = {}, const std::stop_token& stop = {});
    /// The same for one of several files: no folder is listed twice, and a file of that name is an
    /// error unless `mayReplace`.
    void uploadFile(const LocalSource& source, const QString& remoteParentPath,
                    const DeviceInfo& device, bool mayReplace, MTPUploadMemory& memory,
                    const FileProgressCallback& progress, const std::stop_token& stop);
    [[nodiscard]] TransferOutcome uploadDirectory(const LocalSource& source,
                                                  const QString& remoteParentPath,
                                                  const std::optional<DeviceInfo>& device,
                                                  const TransferProgressCallback& progress = {},
                                                  const std::stop_token& stop = {});

    void createFolder(const QString& name, const QString& parentPath,
                      const std::optional<DeviceInfo>& device, const std::stop_token& stop = {});
    void deleteFile(const FileItem& item, const std::optional<DeviceInfo>& device,
                    const std::stop_token& stop = {});
    /// Deletes a folder, unless there is something in it.
    void deleteEmptyFolder(const FileItem& item, const DeviceInfo& device,
                           const std::stop_token& stop = {});
    void renameItem(const FileItem& item, const QString& newName,
                    const std::optional<DeviceInfo>& device, const std::stop_token& stop = {});
    void moveItem(const FileItem& item, const QString& newParentPath,
                  const std::optional<DeviceInfo>& device, const std::stop_token& stop = {});

    /// Until the result goes, this thread's calls for the device share one connection.
    [[nodiscard]] std::shared_ptr<void> hold(const DeviceInfo& device);

    /// Battery and storages; no value while the device is busy. Never throws.
    [[nodiscard]] std::optional<LiveDeviceInfo> fetchLiveDeviceInfo(const DeviceInfo& device);

    /// A local copy for dragging out, in a folder that is the item's own: by device, path, size
    /// and date. A copy that is complete is returned at once. Otherwise it is started, and the
    /// call returns its path after at most two seconds, complete or not. `stop` ends the copy.
    /// Only a few are made at a time; copies of earlier days are removed at the start.
    [[nodiscard]] QString stageItemForDrag(const FileItem& item,
                                           const std::optional<DeviceInfo>& device,
                                           const std::stop_token& stop = {});

    /// Whether a program runs that is known to compete for phones.
    [[nodiscard]] bool isConflictingAppRunning();
    /// Ends the programs that are known to compete for phones; whoever calls it has asked the user.
    void killConflictingAgents();
    /// The programs that hold this device right now.
    [[nodiscard]] QStringList programsHolding(const DeviceInfo& device);

    /// The adb executable of this machine: the first that is there of the home folder's Android
    /// tools and the usual places.
    [[nodiscard]] std::optional<QString> findADBBinary() const;
    [[nodiscard]] const ADBTool& adbTool() const {
        return adbTool_;
    }
    /// Whether adb reaches a phone with this serial number; without one, whether it reaches
    /// exactly one phone. Starts adb's server when none runs.
    [[nodiscard]] bool isADBDeviceConnected(const std::optional<QString>& serial);
    /// The phones that adb reaches, or is being refused by. Starts adb's server when none runs.
    [[nodiscard]] std::vector<ADBDevice> adbDevices();

    /// Whether the device's files are reached through adb.
    [[nodiscard]] bool usesADB(const DeviceInfo& device) const;

private:
    /// Calls `work(backend)` with the backend of the device's mode; MTP when there is no adb.
    template <typename Work>
    auto onBackend(const DeviceInfo& device, Work work);
    [[nodiscard]] QString stagingPath(const FileItem& item, const DeviceInfo& device) const;

    USBBus& bus_;
    ProcessRunner& processes_;
    MTPFileBackend mtp_;
    ADBTool adbTool_;
    ADBFileBackend adb_;
    QString stagingDirectory_;

    std::mutex stagingMutex_;
    std::condition_variable staged_;
    QSet<QString> staging_; ///< paths of copies under way; guarded by stagingMutex_
    std::stop_source stopStaging_;
    std::vector<std::jthread> stagingThreads_; ///< guarded by stagingMutex_; last: joined first
};

} // namespace tessary
