#pragma once

#include "ios/AFCClient.h"
#include "sync/SyncDeviceBackend.h"

#include <QSet>

#include <memory>
#include <stop_token>

namespace tessary {

/// A folder of an iPhone app's documents as the device side of a run. A new file is sent under a
/// temporary name and renamed over the old one: neither is ever missing.
class iOSSyncBackend final : public SyncDeviceBackend {
public:
    iOSSyncBackend(std::unique_ptr<AFCClient> client, std::stop_token stop);

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

private:
    [[nodiscard]] QString onDevice(const QString& path) const;
    [[nodiscard]] std::optional<FileItem> entryAt(const QString& remotePath);
    void ensureFolder(const QString& path);

    const std::unique_ptr<AFCClient> client_;
    const std::stop_token stop_;
    QSet<QString> folders_; ///< that are known to be there
};

} // namespace tessary
