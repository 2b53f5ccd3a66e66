#pragma once

#include "phone/TransferOutcome.h"
#include "sync/old/plan/SyncManifest.h"
#include "sync/old/plan/SyncScan.h"

#include <QString>

#include <memory>
#include <optional>

namespace tessary {

/// The device side of one run: made for it and dropped after it. Used by one thread at a time, not
/// the main one; calls block. What throws throws the errors of its layer, and CancellationError
/// once the run's stop token asks for it. Remote paths are absolute in the device's namespace.
class SyncDeviceBackend {
public:
    virtual ~SyncDeviceBackend() = default;

    /// Everything below a folder, one listing a folder. An entry whose facts cannot be read fails
    /// the scan: what is not in the result is not there.
    [[nodiscard]] virtual SyncScan scanDirectory(const QString& remoteRoot) = 0;
    /// The same of one folder without what is in its folders.
    [[nodiscard]] virtual SyncScan scanFolder(const QString& remotePath) = 0;
    /// Whether the first 4096 bytes of two files of one size are the same. False when either
    /// cannot be read; never throws but CancellationError.
    [[nodiscard]] virtual bool areFilesMatching(const QString& localFile, const QString& remotePath,
                                                qint64 localSize, qint64 remoteSize) = 0;
    /// Copies a file to `localFile`, whole or not at all; the folder above is there.
    virtual void downloadFile(const QString& remotePath, const QString& localFile, qint64 fileSize,
                              const FileProgressCallback& progress) = 0;
    /// Copies a file to the device and makes the folders above it. A file of that name is an error
    /// unless `mayReplace`; then it is replaced once the new one has arrived whole. Returns the
    /// copy as the device described it right afterwards, where that cost no more than one question.
    virtual std::optional<SyncFileEntry> uploadFile(const QString& localFile,
                                                    const QString& remotePath, bool mayReplace,
                                                    const FileProgressCallback& progress) = 0;
    virtual void deleteRemoteFile(const QString& remotePath) = 0;
    /// Removes a folder that is empty, and then those above it that became so, the root never.
    /// Never throws but CancellationError.
    virtual void cleanupEmptyRemoteDirectories(const QString& path, const QString& rootPath) = 0;
    /// No value when there is none that can be read. Never throws but CancellationError.
    [[nodiscard]] virtual std::optional<SyncManifest>
    loadRemoteManifest(const QString& remoteRoot) = 0;
    /// Replaces the manifest, whole or not at all. Failures are logged only.
    virtual void saveRemoteManifest(const SyncManifest& manifest, const QString& remoteRoot) = 0;

    /// A file as it is now; no value when there is none.
    [[nodiscard]] virtual std::optional<SyncFileEntry> statFile(const QString& remotePath) = 0;
    [[nodiscard]] virtual SyncNameRules nameRules() const = 0;
    /// Keeps the connection to the device open until the result goes; null when there is no need.
    [[nodiscard]] virtual std::shared_ptr<void> holdConnection() {
        return nullptr;
    }
};

} // namespace tessary
