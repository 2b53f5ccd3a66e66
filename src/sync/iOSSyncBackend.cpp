#include "sync/iOSSyncBackend.h"

#include "core/CancellationError.h"
#include "core/DiagnosticsLogger.h"
#include "core/PartFile.h"
#include "core/PathNames.h"
#include "core/TessaryError.h"
#include "sync/SyncTreeWalk.h"

#include <QFile>
#include <QTemporaryDir>
#include <QUuid>

#include <mutex>

namespace tessary {

namespace {

/// Hands progress on while its call runs: the client delivers it on another thread, also later.
class ProgressRelay {
public:
    explicit ProgressRelay(const FileProgressCallback& callback)
        : shared_(std::make_shared<Shared>()) {
        shared_->callback = callback;
    }
    ~ProgressRelay() {
        const std::scoped_lock lock(shared_->mutex);
        shared_->callback = nullptr;
    }
    ProgressRelay(const ProgressRelay&) = delete;
    ProgressRelay& operator=(const ProgressRelay&) = delete;

    [[nodiscard]] FileProgressCallback callback() const {
        return [shared = shared_](qint64 done, qint64 total) {
            const std::scoped_lock lock(shared->mutex);
            if (shared->callback)
                shared->callback(done, total);
        };
    }

private:
    struct Shared {
        std::mutex mutex;
        FileProgressCallback callback; ///< guarded by mutex; null once the call is over
    };
    std::shared_ptr<Shared> shared_;
};

/// Runs what must never fail but by cancellation; `what` goes to the log.
template <typename Work>
void quietly(const char* what, Work work) {
    try {
        work();
    } catch (const CancellationError&) {
        throw;
    } catch (const std::exception& error) {
        DiagnosticsLogger::shared().afc.standard(what, {QString::fromUtf8(error.what())});
    }
}

} // namespace

iOSSyncBackend::iOSSyncBackend(std::unique_ptr<AFCClient> client, std::stop_token stop)
    : client_(std::move(client)), stop_(std::move(stop)) {}

/// Pairs have paths below the app's working folder, the client those of the container.
QString iOSSyncBackend::onDevice(const QString& path) const {
    const QString& root = client_->workingRootPath();
    const QLatin1Char slash('/');
    if (root == slash)
        return path;
    return path == slash ? root : root + path;
}

SyncScan iOSSyncBackend::scanDirectory(const QString& remoteRoot) {
    return scanTree(remoteRoot, [this](const QString& path) {
        std::vector<FileItem> items =
            client_->listContents(onDevice(path), stop_, AFCClient::EntryFacts::required);
        folders_.insert(path);
        return items;
    });
}

SyncScan iOSSyncBackend::scanFolder(const QString& remotePath) {
    SyncScan scan;
    addListing(scan,
               client_->listContents(onDevice(remotePath), stop_, AFCClient::EntryFacts::required),
               {});
    return scan;
}

std::optional<FileItem> iOSSyncBackend::entryAt(const QString& remotePath) {
    try {
        return client_->itemAt(onDevice(remotePath), stop_);
    } catch (const TessaryError& error) {
        if (error.kind() == TessaryError::Case::afcError && error.afc() == AFCError::objectNotFound)
            return std::nullopt;
        throw;
    }
}

std::optional<SyncFileEntry> iOSSyncBackend::statFile(const QString& remotePath) {
    const auto item = entryAt(remotePath);
    if (!item || item->isDirectory)
        return std::nullopt;
    return SyncFileEntry{item->size, syncDate(item->modifiedDate), {}, {}};
}

bool iOSSyncBackend::areFilesMatching(const QString& localFile, const QString& remotePath,
                                      qint64 localSize, qint64 remoteSize) {
    bool areEqual = localSize == remoteSize && localSize == 0;
    if (localSize == remoteSize && localSize > 0)
        quietly("sample not read: %s", [&] {
            const auto sample = localSample(localFile);
            areEqual = sample && *sample == client_->readSampleBytes(onDevice(remotePath),
                                                                     syncSampleSize, stop_);
        });
    return areEqual;
}

void iOSSyncBackend::downloadFile(const QString& remotePath, const QString& localFile,
                                  qint64 fileSize, const FileProgressCallback& progress) {
    const ProgressRelay relay(progress);
    client_->downloadFile(onDevice(remotePath), localFile, fileSize, relay.callback(), stop_);
}

void iOSSyncBackend::ensureFolder(const QString& path) {
    if (folders_.contains(path) || path == QLatin1StringView("/"))
        return;
    ensureFolder(parentPath(path));
    const auto item = entryAt(path);
    if (item && !item->isDirectory)
        throw TessaryError::fileIOError(
            QStringLiteral("A file named %1 is on the device where a folder is needed.").arg(path));
    if (!item)
        client_->createDirectory(onDevice(path), stop_);
    folders_.insert(path);
}

void iOSSyncBackend::uploadFile(const QString& localFile, const QString& remotePath,
                                bool mayReplace, const FileProgressCallback& progress) {
    const QString folder = parentPath(remotePath);
    ensureFolder(folder);
    const QString temporary = joinPath(
        folder, PartFile::namePrefix + QUuid::createUuid().toString(QUuid::Id128).left(12));
    {
        const ProgressRelay relay(progress);
        client_->uploadFile(localFile, onDevice(temporary), relay.callback(), stop_);
    }
    const auto existing = entryAt(remotePath);
    if (existing && (existing->isDirectory || !mayReplace)) {
        client_->removePath(onDevice(temporary), stop_);
        throw TessaryError::fileIOError(
            QStringLiteral("%1 has appeared on the device meanwhile.").arg(remotePath));
    }
    client_->renamePath(onDevice(temporary), onDevice(remotePath), stop_);
}

void iOSSyncBackend::deleteRemoteFile(const QString& remotePath) {
    const auto item = entryAt(remotePath);
    if (!item || item->isDirectory)
        throw TessaryError::fileIOError(
            QStringLiteral("%1 is not on the device any more. Sync again.").arg(remotePath));
    client_->removePath(onDevice(remotePath), stop_);
}

void iOSSyncBackend::cleanupEmptyRemoteDirectories(const QString& path, const QString& rootPath) {
    quietly("empty folder not removed: %s", [&] {
        const QString inside = rootPath.endsWith(u'/') ? rootPath : rootPath + QLatin1Char('/');
        for (QString folder = path; folder.startsWith(inside) && folder != rootPath;
             folder = parentPath(folder)) {
            const auto item = entryAt(folder);
            if (!item)
                continue; // gone already
            const auto facts = AFCClient::EntryFacts::required;
            if (!item->isDirectory ||
                !client_->listContents(onDevice(folder), stop_, facts).empty())
                return;
            client_->removePath(onDevice(folder), stop_);
            folders_.remove(folder);
        }
    });
}

std::optional<SyncManifest> iOSSyncBackend::loadRemoteManifest(const QString& remoteRoot) {
    std::optional<SyncManifest> manifest;
    quietly("sync manifest not read: %s", [&] {
        const QString path = joinPath(remoteRoot, SyncManifest::fileName);
        const auto item = entryAt(path);
        const QTemporaryDir folder;
        if (!item || item->isDirectory || item->size > SyncManifest::maxBytes || !folder.isValid())
            return;
        QFile file(folder.filePath(QStringLiteral("manifest")));
        client_->downloadFile(onDevice(path), file.fileName(), item->size, {}, stop_);
        if (file.open(QIODevice::ReadOnly))
            manifest = SyncManifest::decode(file.read(SyncManifest::maxBytes));
    });
    return manifest;
}

void iOSSyncBackend::saveRemoteManifest(const SyncManifest& manifest, const QString& remoteRoot) {
    quietly("sync manifest not written: %s", [&] {
        const QTemporaryDir folder;
        QFile file(folder.filePath(SyncManifest::fileName));
        const QByteArray json = manifest.encode();
        if (!file.open(QIODevice::WriteOnly) || file.write(json) != json.size() || !file.flush())
            throw TessaryError::fileIOError(file.errorString());
        file.close();
        uploadFile(file.fileName(), joinPath(remoteRoot, SyncManifest::fileName), true, {});
    });
}

SyncNameRules iOSSyncBackend::nameRules() const {
    SyncNameRules rules;
    rules.ignoresUnicodeForm = true;
    rules.refusal = [](QStringView name) {
        constexpr qsizetype longestBytes = 255;
        return name.toUtf8().size() > longestBytes
                   ? QStringLiteral("its name is too long for the device")
                   : QString();
    };
    return rules;
}

} // namespace tessary
