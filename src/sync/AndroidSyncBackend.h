#pragma once

#include "core/DeviceInfo.h"
#include "files/DeviceFileService.h"
#include "sync/SyncDeviceBackend.h"

#include <QSet>

#include <stop_token>

namespace tessary {

/// A folder of an Android phone's storage as the device side of a run, over whichever protocol the
/// phone is in. A replacing upload over MTP sends the new file under a temporary name, deletes the
/// old one and renames; a phone that cannot rename refuses, and keeps the old one.
class AndroidSyncBackend final : public SyncDeviceBackend {
public:
    /// `service` must outlive the backend.
    AndroidSyncBackend(DeviceFileService& service, DeviceInfo device, std::stop_token stop);

    [[nodiscard]] SyncScan scanDirectory(const QString& remoteRoot) override;
    [[nodiscard]] SyncScan scanFolder(const QString& remotePath) override;
    [[nodiscard]] bool areFilesMatching(const QString& localFile, const QString& remotePath,
                                        qint64 localSize, qint64 remoteSize) override;
    void downloadFile(const QString& remotePath, const QString& localFile, qint64 fileSize,
                      const FileProgressCallback& progress) override;
    void uploadFile(const QString& localFile, const QString& remotePath, bool mayReplace,
                    const FileProgressCallback& progress) override;
    void deleteRemoteFile(const QString& remotePath) override;
    void cleanupEmptyRemoteDirectories(const QString& path, const QString& rootPath) override;
    [[nodiscard]] std::optional<SyncManifest>
    loadRemoteManifest(const QString& remoteRoot) override;
    void saveRemoteManifest(const SyncManifest& manifest, const QString& remoteRoot) override;
    [[nodiscard]] std::optional<SyncFileEntry> statFile(const QString& remotePath) override;
    [[nodiscard]] SyncNameRules nameRules() const override;
    [[nodiscard]] std::shared_ptr<void> holdConnection() override;

private:
    [[nodiscard]] FileItem require(const QString& remotePath);
    void ensureRemoteDirectory(const QString& path);

    DeviceFileService& service_;
    const DeviceInfo device_;
    const std::stop_token stop_;
    MTPUploadMemory uploads_;
    QSet<QString> folders_; ///< that are known to be there
};

} // namespace tessary
