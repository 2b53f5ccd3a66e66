#pragma once

#include "adb/files/LsOutput.h"
#include "adb/tool/ADBTool.h"
#include "base/local/LocalSource.h"
#include "phone/BusyPhones.h"
#include "phone/TransferOutcome.h"
#include "phone/records/DeviceInfo.h"
#include "phone/records/FileItem.h"
#include "phone/records/LiveDeviceInfo.h"

#include <QString>

#include <optional>
#include <stop_token>
#include <vector>

namespace tessary {

/// File operations on Android devices by way of the adb tool, one child process a command.
/// Thread-safe and blocking; adb keeps several commands on one phone apart. Failures are
/// TessaryError::fileIOError, and CancellationError follows a stop request, with the child gone.
///
/// Paths are those of androidPath(). Items carry absolute paths.
class ADBFileBackend {
public:
    /// `tool` must outlive the backend.
    explicit ADBFileBackend(const ADBTool& tool) : tool_(tool) {}

    /// What can be read of a folder. A folder that is not there, and a phone that cannot be
    /// reached, throw; an adb that cannot be started is logged, and the list is empty.
    [[nodiscard]] std::vector<FileItem> listDirectory(const QString& path, const DeviceInfo& device,
                                                      const std::stop_token& stop) const;
    /// A folder with every entry that it has, or an error.
    [[nodiscard]] CheckedListing listChecked(const QString& path, const DeviceInfo& device,
                                             const std::stop_token& stop) const;
    [[nodiscard]] FileItem itemAt(const QString& path, const DeviceInfo& device,
                                  const std::stop_token& stop) const;
    /// The same; no value when nothing is at the path.
    [[nodiscard]] std::optional<FileItem> entryAt(const QString& path, const DeviceInfo& device,
                                                  const std::stop_token& stop) const;
    /// The first bytes of a file, fewer when it is shorter.
    [[nodiscard]] QByteArray readSample(const QString& path, qint64 maxBytes,
                                        const DeviceInfo& device,
                                        const std::stop_token& stop) const;

    void downloadFile(const FileItem& item, const QString& localFile, const DeviceInfo& device,
                      const FileProgressCallback& progress, const std::stop_token& stop);
    [[nodiscard]] TransferOutcome
    downloadDirectory(const FileItem& item, const QString& localFolder, const DeviceInfo& device,
                      const TransferProgressCallback& progress, const std::stop_token& stop);
    /// A file of that name is an error unless `mayReplace`.
    void uploadFile(const LocalSource& source, const QString& remoteParentPath,
                    const DeviceInfo& device, const FileProgressCallback& progress,
                    const std::stop_token& stop, bool mayReplace = true);
    [[nodiscard]] TransferOutcome uploadDirectory(const LocalSource& source,
                                                  const QString& remoteParentPath,
                                                  const DeviceInfo& device,
                                                  const TransferProgressCallback& progress,
                                                  const std::stop_token& stop);

    void createFolder(const QString& name, const QString& parentPath, const DeviceInfo& device,
                      const std::stop_token& stop) const;
    void deleteFile(const FileItem& item, const DeviceInfo& device,
                    const std::stop_token& stop) const;
    /// Deletes a folder, unless there is something in it.
    void deleteEmptyFolder(const FileItem& item, const DeviceInfo& device,
                           const std::stop_token& stop) const;
    void renameItem(const FileItem& item, const QString& newName, const DeviceInfo& device,
                    const std::stop_token& stop) const;
    void moveItem(const FileItem& item, const QString& newParentPath, const DeviceInfo& device,
                  const std::stop_token& stop) const;

    /// Battery and storage; no value while a copy runs on the device. Never throws.
    [[nodiscard]] std::optional<LiveDeviceInfo> fetchLiveDeviceInfo(const DeviceInfo& device) const;

private:
    const ADBTool& tool_;
    BusyPhones copies_; ///< those that a copy is under way with
};

/// The percent in what `dumpsys battery` prints.
[[nodiscard]] std::optional<int> parseBatteryLevel(const QByteArray& output);
/// The storage in what `df -k /sdcard` prints.
[[nodiscard]] std::vector<StorageVolume> parseDiskFree(const QByteArray& output);

} // namespace tessary
