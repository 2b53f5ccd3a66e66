#include "sync/AndroidSyncBackend.h"

#include "core/CancellationError.h"
#include "core/DiagnosticsLogger.h"
#include "core/TessaryError.h"
#include "files/DevicePath.h"
#include "sync/SyncTreeWalk.h"

#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <array>

namespace tessary {

namespace {

/// There on every phone, and never to be made.
constexpr std::array storageRoots{
    QLatin1StringView("/"), QLatin1StringView("/sdcard"), QLatin1StringView("/storage"),
    QLatin1StringView("/storage/emulated"), QLatin1StringView("/storage/emulated/0")};

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

AndroidSyncBackend::AndroidSyncBackend(DeviceFileService& service, DeviceInfo device,
                                       std::stop_token stop)
    : service_(service), device_(std::move(device)), stop_(std::move(stop)) {}

std::shared_ptr<void> AndroidSyncBackend::holdConnection() {
    return service_.hold(device_);
}

SyncScan AndroidSyncBackend::scanDirectory(const QString& remoteRoot) {
    std::vector<SkippedItem> all;
    SyncScan scan = scanTree(remoteRoot, [&](const QString& path) {
        std::vector<SkippedItem> skipped;
        std::vector<FileItem> items = service_.listDirectoryChecked(path, device_, stop_, &skipped);
        // By the paths as the scan names them, whatever the phone calls the folder.
        for (const SkippedItem& one : skipped)
            all.push_back({joinPath(path, lastComponent(one.path)), one.reason});
        folders_.insert(path);
        return items;
    });
    for (const SkippedItem& one : all)
        scan.unusable[one.path.mid(joinPath(remoteRoot, {}).size())] = one.reason;
    return scan;
}

SyncScan AndroidSyncBackend::scanFolder(const QString& remotePath) {
    SyncScan scan;
    addListing(scan, service_.listDirectoryChecked(remotePath, device_, stop_), {});
    return scan;
}

/// Over MTP there is no way to read the beginning of a file alone.
bool AndroidSyncBackend::areFilesMatching(const QString& localFile, const QString& remotePath,
                                          qint64 localSize, qint64 remoteSize) {
    if (localSize != remoteSize || localSize == 0)
        return localSize == remoteSize;
    if (!service_.usesAdb(device_))
        return false;
    bool isEqual = false;
    quietly("sample not read: %s", [&] {
        isEqual = localSample(localFile) ==
                  service_.readSampleBytes(remotePath, syncSampleSize, device_, stop_);
    });
    return isEqual;
}

std::optional<SyncFileEntry> AndroidSyncBackend::statFile(const QString& remotePath) {
    const auto item = service_.entryAt(remotePath, device_, stop_);
    if (!item || item->isDirectory)
        return std::nullopt;
    return SyncFileEntry{item->size, syncDate(item->modifiedDate), {}, {}};
}

FileItem AndroidSyncBackend::require(const QString& remotePath) {
    auto item = service_.entryAt(remotePath, device_, stop_);
    if (!item || item->isDirectory)
        throw TessaryError::fileIOError(
            QStringLiteral("%1 is not on the phone any more. Sync again.").arg(remotePath));
    return *std::move(item);
}

void AndroidSyncBackend::downloadFile(const QString& remotePath, const QString& localFile, qint64,
                                      const FileProgressCallback& progress) {
    service_.downloadFile(require(remotePath), localFile, device_, progress, stop_);
}

void AndroidSyncBackend::ensureRemoteDirectory(const QString& path) {
    if (folders_.contains(path) ||
        std::find(storageRoots.begin(), storageRoots.end(), path) != storageRoots.end())
        return;
    const QString parent = parentPath(path);
    ensureRemoteDirectory(parent);
    const auto item = service_.entryAt(path, device_, stop_);
    if (item && !item->isDirectory)
        throw TessaryError::fileIOError(
            QStringLiteral("A file named %1 is on the phone where a folder is needed.").arg(path));
    if (!item)
        service_.createFolder(lastComponent(path), parent, device_, stop_);
    folders_.insert(path);
}

void AndroidSyncBackend::uploadFile(const QString& localFile, const QString& remotePath,
                                    bool mayReplace, const FileProgressCallback& progress) {
    const QString parent = parentPath(remotePath);
    ensureRemoteDirectory(parent);
    service_.uploadFile(localFile, parent, device_, mayReplace, uploads_, progress, stop_);
}

void AndroidSyncBackend::deleteRemoteFile(const QString& remotePath) {
    service_.deleteFile(require(remotePath), device_, stop_);
}

void AndroidSyncBackend::cleanupEmptyRemoteDirectories(const QString& path,
                                                       const QString& rootPath) {
    quietly("empty folder not removed: %s", [&] {
        const QString inside = rootPath.endsWith(u'/') ? rootPath : rootPath + QLatin1Char('/');
        for (QString folder = path; folder.startsWith(inside) && folder != rootPath;
             folder = parentPath(folder)) {
            const auto item = service_.entryAt(folder, device_, stop_);
            if (!item)
                continue; // gone already
            std::vector<SkippedItem> links;
            if (!item->isDirectory ||
                !service_.listDirectoryChecked(folder, device_, stop_, &links).empty() ||
                !links.empty())
                return;
            service_.deleteFile(*item, device_, stop_);
            folders_.remove(folder);
        }
    });
}

std::optional<SyncManifest> AndroidSyncBackend::loadRemoteManifest(const QString& remoteRoot) {
    std::optional<SyncManifest> manifest;
    quietly("sync manifest not read: %s", [&] {
        const QString path = joinPath(remoteRoot, SyncManifest::fileName);
        const auto item = service_.entryAt(path, device_, stop_);
        const QTemporaryDir folder;
        if (!item || item->isDirectory || item->size > SyncManifest::maxBytes || !folder.isValid())
            return;
        QFile file(folder.filePath(QStringLiteral("manifest")));
        service_.downloadFile(*item, file.fileName(), device_, {}, stop_);
        if (file.open(QIODevice::ReadOnly))
            manifest = SyncManifest::decode(file.read(SyncManifest::maxBytes));
    });
    return manifest;
}

void AndroidSyncBackend::saveRemoteManifest(const SyncManifest& manifest,
                                            const QString& remoteRoot) {
    quietly("sync manifest not written: %s", [&] {
        const QTemporaryDir folder;
        QFile file(folder.filePath(SyncManifest::fileName));
        const QByteArray json = manifest.encode();
        if (!file.open(QIODevice::WriteOnly) || file.write(json) != json.size() || !file.flush())
            throw TessaryError::fileIOError(file.errorString());
        file.close();
        service_.uploadFile(file.fileName(), remoteRoot, device_, true, uploads_, {}, stop_);
    });
}

SyncNameRules AndroidSyncBackend::nameRules() const {
    SyncNameRules rules;
    rules.ignoresCase = true;
    rules.ignoresUnicodeForm = true;
    rules.refusal = [](QStringView name) -> QString {
        constexpr QStringView refused(u"\"*:<>?\\|");
        constexpr qsizetype longestUnits = 254;
        constexpr qsizetype longestBytes = 255;
        for (const QChar unit : name)
            if (refused.contains(unit) || unit < u' ')
                return QStringLiteral("phones do not allow a sign in its name");
        if (name.size() > longestUnits || name.toUtf8().size() > longestBytes)
            return QStringLiteral("its name is too long for the phone");
        return {};
    };
    return rules;
}

} // namespace tessary
