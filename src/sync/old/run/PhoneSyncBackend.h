#pragma once

#include "phone/records/FileItem.h"
#include "sync/old/run/SyncDeviceBackend.h"

#include <QSet>

namespace tessary {

/// What the backends of all phones share: the rules of a run in terms of the few things that each
/// connection does in its own way. Those block, throw the errors of their layer, and
/// CancellationError.
class PhoneSyncBackend : public SyncDeviceBackend {
public:
    [[nodiscard]] SyncScan scanDirectory(const QString& remoteRoot) final;
    [[nodiscard]] SyncScan scanFolder(const QString& remotePath) final;
    void downloadFile(const QString& remotePath, const QString& localFile, qint64 fileSize,
                      const FileProgressCallback& progress) final;
    [[nodiscard]] bool areFilesMatching(const QString& localFile, const QString& remotePath,
                                        qint64 localSize, qint64 remoteSize) final;
    void deleteRemoteFile(const QString& remotePath) final;
    void cleanupEmptyRemoteDirectories(const QString& path, const QString& rootPath) final;
    [[nodiscard]] std::optional<SyncManifest> loadRemoteManifest(const QString& remoteRoot) final;
    void saveRemoteManifest(const SyncManifest& manifest, const QString& remoteRoot) final;
    [[nodiscard]] std::optional<SyncFileEntry> statFile(const QString& remotePath) final;

protected:
    /// What is at a path now; no value when there is nothing.
    [[nodiscard]] virtual std::optional<FileItem> entryAt(const QString& remotePath) = 0;
    /// What a folder holds; an entry whose facts cannot be read fails it. What cannot be synced
    /// (links, special files) goes into `skipped`.
    [[nodiscard]] virtual std::vector<FileItem> list(const QString& remotePath,
                                                     std::vector<SkippedItem>& skipped) = 0;
    /// Whether a folder is there on every phone and never to be made.
    [[nodiscard]] virtual bool isAlwaysThere(const QString& remotePath) const = 0;
    virtual void makeFolder(const QString& remotePath) = 0;
    /// Removes a file or an empty folder. One that holds something stays, with an error: it may
    /// have been filled since it was looked at.
    virtual void remove(const FileItem& item, const QString& remotePath) = 0;
    virtual void fetch(const FileItem& item, const QString& remotePath, const QString& localFile,
                       const FileProgressCallback& progress) = 0;
    /// The first `syncSampleSize` bytes of a file; no value where only whole files can be read.
    [[nodiscard]] virtual std::optional<QByteArray> sample(const QString& remotePath) = 0;

    /// The file at a path; a message for the user when there is none.
    [[nodiscard]] FileItem requireFile(const QString& remotePath);
    /// Makes a folder and those above it where they are missing.
    void ensureFolder(const QString& remotePath);

private:
    /// What statFile found last, and where: its deletion, which is next, needs no other look.
    std::optional<std::pair<QString, FileItem>> seen_;
    QSet<QString> folders_; ///< that are known to be there
};

} // namespace tessary
