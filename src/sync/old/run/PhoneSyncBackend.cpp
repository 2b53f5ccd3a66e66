#include "sync/old/run/PhoneSyncBackend.h"

#include "base/log/DiagnosticsLogger.h"
#include "base/text/PathNames.h"
#include "base/threads/CancellationError.h"
#include "base/values/TessaryError.h"
#include "sync/old/plan/SyncTreeWalk.h"

#include <QFile>
#include <QTemporaryDir>

namespace tessary {

namespace {

/// Runs what must never fail but by cancellation; `what` goes to the log.
template <typename Work>
void quietly(const char* what, Work work) {
    try {
        work();
    } catch (const CancellationError&) {
        throw;
    } catch (const std::exception& error) {
        DiagnosticsLogger::shared().transfer.standard(what, {QString::fromUtf8(error.what())});
    }
}

} // namespace

SyncScan PhoneSyncBackend::scanDirectory(const QString& remoteRoot) {
    return scanTree(remoteRoot, [this](const QString& path, std::vector<SkippedItem>& skipped) {
        std::vector<FileItem> items = list(path, skipped);
        folders_.insert(path);
        return items;
    });
}

SyncScan PhoneSyncBackend::scanFolder(const QString& remotePath) {
    SyncScan scan;
    std::vector<SkippedItem> skipped;
    addListing(scan, list(remotePath, skipped), {});
    return scan;
}

void PhoneSyncBackend::downloadFile(const QString& remotePath, const QString& localFile,
                                    qint64 fileSize, const FileProgressCallback& progress) {
    // The connection looks for itself whether the file is there.
    fetch(FileItem(lastComponent(remotePath), remotePath, false, fileSize, std::nullopt),
          remotePath, localFile, progress);
}

bool PhoneSyncBackend::areFilesMatching(const QString& localFile, const QString& remotePath,
                                        qint64 localSize, qint64 remoteSize) {
    if (localSize != remoteSize || localSize == 0)
        return localSize == remoteSize;
    bool isEqual = false;
    quietly("sample not read: %s", [&] {
        const auto theirs = sample(remotePath);
        isEqual = theirs && theirs == localSample(localFile);
    });
    return isEqual;
}

std::optional<SyncFileEntry> PhoneSyncBackend::statFile(const QString& remotePath) {
    seen_.reset();
    const auto item = entryAt(remotePath);
    if (!item || item->isDirectory)
        return std::nullopt;
    seen_ = {remotePath, *item};
    return SyncFileEntry{item->size, syncDate(item->modifiedDate), {}, {}};
}

FileItem PhoneSyncBackend::requireFile(const QString& remotePath) {
    auto item = entryAt(remotePath);
    if (!item || item->isDirectory)
        throw TessaryError::fileIOError(
            QStringLiteral("%1 is not on the device any more. Sync again.").arg(remotePath));
    return *std::move(item);
}

void PhoneSyncBackend::ensureFolder(const QString& remotePath) {
    if (folders_.contains(remotePath) || isAlwaysThere(remotePath))
        return;
    ensureFolder(parentPath(remotePath));
    const auto item = entryAt(remotePath);
    if (item && !item->isDirectory)
        throw TessaryError::fileIOError(
            QStringLiteral("A file named %1 is on the device where a folder is needed.")
                .arg(remotePath));
    if (!item)
        makeFolder(remotePath);
    folders_.insert(remotePath);
}

void PhoneSyncBackend::deleteRemoteFile(const QString& remotePath) {
    const auto seen = std::exchange(seen_, std::nullopt);
    remove(seen && seen->first == remotePath ? seen->second : requireFile(remotePath), remotePath);
}

void PhoneSyncBackend::cleanupEmptyRemoteDirectories(const QString& path, const QString& rootPath) {
    quietly("empty folder not removed: %s", [&] {
        const QString inside = rootPath.endsWith(u'/') ? rootPath : rootPath + QLatin1Char('/');
        for (QString folder = path; folder.startsWith(inside) && folder != rootPath;
             folder = parentPath(folder)) {
            const auto item = entryAt(folder);
            if (!item)
                continue; // gone already
            std::vector<SkippedItem> skipped;
            if (!item->isDirectory || !list(folder, skipped).empty() || !skipped.empty())
                return;
            remove(*item, folder);
            folders_.remove(folder);
        }
    });
}

std::optional<SyncManifest> PhoneSyncBackend::loadRemoteManifest(const QString& remoteRoot) {
    std::optional<SyncManifest> manifest;
    quietly("sync manifest not read: %s", [&] {
        const QString path = joinPath(remoteRoot, SyncManifest::fileName);
        const auto item = entryAt(path);
        const QTemporaryDir folder;
        if (!item || item->isDirectory || item->size > SyncManifest::maxBytes || !folder.isValid())
            return;
        QFile file(folder.filePath(QStringLiteral("manifest")));
        fetch(*item, path, file.fileName(), {});
        if (file.size() <= SyncManifest::maxBytes && file.open(QIODevice::ReadOnly))
            manifest = SyncManifest::decode(file.readAll());
    });
    return manifest;
}

void PhoneSyncBackend::saveRemoteManifest(const SyncManifest& manifest, const QString& remoteRoot) {
    quietly("sync manifest not written: %s", [&] {
        const QTemporaryDir folder;
        QFile file(folder.filePath(SyncManifest::fileName));
        const QByteArray json = manifest.encode();
        if (!file.open(QIODevice::WriteOnly) || file.write(json) != json.size() || !file.flush())
            throw TessaryError::fileIOError(file.errorString());
        file.close();
        (void)uploadFile(file.fileName(), joinPath(remoteRoot, SyncManifest::fileName), true, {});
    });
}

} // namespace tessary
