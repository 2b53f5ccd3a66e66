#include "sync/iOSSyncBackend.h"

#include "core/PartFile.h"
#include "core/PathNames.h"
#include "core/TessaryError.h"
#include "sync/SyncTreeWalk.h"

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

} // namespace

iOSSyncBackend::iOSSyncBackend(std::unique_ptr<AFCClient> client, const QString& udid,
                               std::stop_token stop)
    : busy_(BusyPhones::shared(), udid), client_(std::move(client)), stop_(std::move(stop)) {}

/// Pairs have paths below the app's working folder, the client those of the container.
QString iOSSyncBackend::onDevice(const QString& path) const {
    const QString& root = client_->workingRootPath();
    const QLatin1Char slash('/');
    if (root == slash)
        return path;
    return path == slash ? root : root + path;
}

SyncScan iOSSyncBackend::scanDirectory(const QString& remoteRoot) {
    return scanTree(remoteRoot, [this](const QString& path, std::vector<SkippedItem>& skipped) {
        std::vector<FileItem> items =
            client_->listContents(onDevice(path), stop_, AFCClient::EntryFacts::required, &skipped);
        noteFolder(path);
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

bool iOSSyncBackend::isEmptyFolder(const QString& remotePath) {
    return client_->listContents(onDevice(remotePath), stop_, AFCClient::EntryFacts::required)
        .empty();
}

bool iOSSyncBackend::isAlwaysThere(const QString& remotePath) const {
    return remotePath == QLatin1StringView("/");
}

void iOSSyncBackend::makeFolder(const QString& remotePath) {
    client_->createDirectory(onDevice(remotePath), stop_);
}

void iOSSyncBackend::remove(const FileItem&, const QString& remotePath) {
    client_->removeEntry(onDevice(remotePath), stop_);
}

void iOSSyncBackend::fetch(const FileItem& item, const QString& remotePath,
                           const QString& localFile, const FileProgressCallback& progress) {
    downloadFile(remotePath, localFile, item.size, progress);
}

std::optional<QByteArray> iOSSyncBackend::sample(const QString& remotePath) {
    return client_->readSampleBytes(onDevice(remotePath), syncSampleSize, stop_);
}

void iOSSyncBackend::downloadFile(const QString& remotePath, const QString& localFile,
                                  qint64 fileSize, const FileProgressCallback& progress) {
    const ProgressRelay relay(progress);
    client_->downloadFile(onDevice(remotePath), localFile, fileSize, relay.callback(), stop_);
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
