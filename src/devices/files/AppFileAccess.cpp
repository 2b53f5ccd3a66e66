#include "devices/files/AppFileAccess.h"

#include "base/log/DiagnosticsLogger.h"
#include "base/text/PathNames.h"
#include "base/threads/CallbackGate.h"
#include "base/threads/CancellationError.h"
#include "base/threads/CombinedStopToken.h"
#include "base/values/TessaryError.h"

#include <QFileInfo>

#include <future>

namespace tessary {

namespace {

using namespace std::chrono_literals;

constexpr QLatin1Char slash('/');
constexpr auto stagingPatience = 2s;
/// Above what a client needs to let go of a silent phone.
constexpr SerialQueue::Patience patienceWithStaging{4s, 24h};
/// Five attempts, each with the library's own patience.
constexpr SerialQueue::Patience patienceWithOpening{1s, 3min};

using FileGate = CallbackGate<qint64, qint64>;
using FolderGate = CallbackGate<const TransferProgress&>;

void requireName(const QString& name) {
    if (!isSafeName(name))
        throw TessaryError::fileIOError(
            QStringLiteral("\"%1\" cannot be the name of a file.").arg(name));
}

} // namespace

struct AppFileAccess::Opened {
    std::mutex mutex;
    std::shared_ptr<AFCClient> client; ///< guarded by mutex

    [[nodiscard]] std::shared_ptr<AFCClient> usable() {
        const std::scoped_lock lock(mutex);
        return client && !client->isLost() ? client : nullptr;
    }
    void set(std::shared_ptr<AFCClient> made) {
        const std::scoped_lock lock(mutex);
        std::swap(client, made);
    }
};

AppFileAccess::AppFileAccess(DeviceInfo device, AppInfo app, Setup setup)
    : device_(std::move(device)),
      app_(std::move(app)),
      busy_(setup.busy ? *setup.busy : BusyPhones::shared()),
      staged_(setup.staging ? *setup.staging : PreviewCache::shared()),
      opened_(std::make_shared<Opened>()),
      opening_("tessary-open", patienceWithOpening),
      staging_("tessary-staging", patienceWithStaging) {}

AppFileAccess::~AppFileAccess() {
    stopStaging_.request_stop();
}

QString AppFileAccess::identity() const {
    return QStringLiteral("ios:%1:%2").arg(device_.udid, app_.bundleIdentifier);
}

QString AppFileAccess::deviceName() const {
    return QStringLiteral("%1 (%2)").arg(app_.displayName,
                                         device_.deviceName.value_or(device_.udid));
}

BrowserRoot AppFileAccess::rootOf(const QString&) const {
    return {QString(slash), QStringLiteral("Documents")};
}

QString AppFileAccess::canonicalPath(const QString& path) const {
    return slash + path.split(slash, Qt::SkipEmptyParts).join(slash);
}

/// The open connection, made first when there is none. Two callers do not make two.
std::shared_ptr<AFCClient> AppFileAccess::client(const std::stop_token& stop) {
    throwIfStopped(stop);
    if (auto client = opened_->usable())
        return client;
    try {
        return opening_.run(
            [opened = opened_, udid = device_.udid, bundleId = app_.bundleIdentifier, stop] {
                if (auto client = opened->usable())
                    return client;
                opened->set(nullptr); // the old one ends before the new one begins
                auto client = std::make_shared<AFCClient>(
                    std::make_unique<LockdownSession>(udid, stop), bundleId, stop);
                opened->set(client);
                return client;
            },
            stop);
    } catch (const QueueStalled&) {
        throw TessaryError::afcError(AFCError::opTimeout);
    }
}

std::vector<FileItem> AppFileAccess::listDirectory(const QString& at, const std::stop_token& stop) {
    const BusyPhones::Mark mark(busy_, device_.udid);
    const QString folder = canonicalPath(at);
    const auto list = [&](AFCClient& client) {
        std::vector<FileItem> items = client.listContents(client.inContainer(folder), stop);
        for (FileItem& item : items)
            item.path = joinPath(folder, item.name);
        return items;
    };
    const auto opened = client(stop);
    try {
        return list(*opened);
    } catch (const TessaryError&) {
        if (!opened->isLost())
            throw;
    }
    // The connection has failed: of a phone that is still there a new one can be made.
    return list(*client(stop));
}

FileItem AppFileAccess::itemAt(const QString& path, const std::stop_token& stop) {
    const BusyPhones::Mark mark(busy_, device_.udid);
    return existing(*client(stop), canonicalPath(path), stop);
}

FileItem AppFileAccess::existing(AFCClient& client, const QString& path,
                                 const std::stop_token& stop) const {
    FileItem item = client.itemAt(client.inContainer(path), stop);
    item.path = path;
    item.name = path == slash ? rootOf(path).name : lastComponent(path);
    return item;
}

void AppFileAccess::downloadFile(const FileItem& item, const QString& to,
                                 const FileProgressCallback& progress,
                                 const std::stop_token& stop) {
    const BusyPhones::Mark mark(busy_, device_.udid);
    const FileGate gate(progress);
    const auto client = this->client(stop);
    const qint64 size =
        client->downloadFile(client->inContainer(item.path), to, item.size, gate.entrance(), stop);
    if (progress)
        progress(size, size);
}

TransferOutcome AppFileAccess::downloadDirectoryContents(const FileItem& item,
                                                         const QString& localFolder,
                                                         const TransferProgressCallback& progress,
                                                         const std::stop_token& stop) {
    const BusyPhones::Mark mark(busy_, device_.udid);
    const FolderGate gate(progress);
    const auto client = this->client(stop);
    TransferOutcome outcome = client->downloadDirectory(client->inContainer(item.path), localFolder,
                                                        gate.entrance(), stop);
    const QString root = client->workingRootPath() == slash ? QString() : client->workingRootPath();
    for (SkippedItem& skipped : outcome.skipped)
        skipped.path.remove(0, root.size());
    if (progress)
        progress(outcome.progress);
    return outcome;
}

void AppFileAccess::uploadFile(const LocalSource& source, const QString& remoteParentPath,
                               const FileProgressCallback& progress, const std::stop_token& stop) {
    const BusyPhones::Mark mark(busy_, device_.udid);
    const FileGate gate(progress);
    const auto client = this->client(stop);
    const QString target = joinPath(canonicalPath(remoteParentPath), source.name);
    client->uploadFile(source.path, client->inContainer(target), gate.entrance(), stop);
    const qint64 size = QFileInfo(source.path).size();
    if (progress)
        progress(size, size);
}

TransferOutcome AppFileAccess::uploadDirectory(const LocalSource& source,
                                               const QString& remoteParentPath,
                                               const TransferProgressCallback& progress,
                                               const std::stop_token& stop) {
    const BusyPhones::Mark mark(busy_, device_.udid);
    const FolderGate gate(progress);
    const auto client = this->client(stop);
    const QString parent = canonicalPath(remoteParentPath);
    if (!existing(*client, parent, stop).isDirectory)
        throw TessaryError::fileIOError(QStringLiteral("%1 is not a folder.").arg(parent));
    const QString target = joinPath(parent, source.name);
    TransferOutcome outcome =
        client->uploadDirectory(source.path, client->inContainer(target), gate.entrance(), stop);
    if (progress)
        progress(outcome.progress);
    return outcome;
}

void AppFileAccess::createFolder(const QString& name, const QString& parentPath,
                                 const std::stop_token& stop) {
    const BusyPhones::Mark mark(busy_, device_.udid);
    requireName(name);
    const auto client = this->client(stop);
    const QString path = client->inContainer(joinPath(canonicalPath(parentPath), name));
    // Phones make what is missing above it, and say nothing about what is there.
    (void)existing(*client, canonicalPath(parentPath), stop);
    if (client->findItem(path, stop))
        throw TessaryError::fileIOError(QStringLiteral("\"%1\" is already there.").arg(name));
    client->createDirectory(path, stop);
}

void AppFileAccess::deleteItem(const FileItem& item, const std::stop_token& stop) {
    const BusyPhones::Mark mark(busy_, device_.udid);
    const QString path = canonicalPath(item.path);
    if (path == slash)
        throw TessaryError::fileIOError(
            QStringLiteral("The documents of an app cannot be deleted as a whole."));
    requireName(item.name);
    const auto client = this->client(stop);
    client->removePath(client->inContainer(path), stop);
}

void AppFileAccess::renameItem(const FileItem& item, const QString& newName,
                               const std::stop_token& stop) {
    requireName(newName);
    rename(item, joinPath(parentPath(item.path), newName), stop);
}

void AppFileAccess::moveItem(const FileItem& item, const QString& newParentPath,
                             const std::stop_token& stop) {
    const QString folder = canonicalPath(newParentPath);
    if (joinPath(folder, QString()).startsWith(joinPath(item.path, QString())))
        throw TessaryError::fileIOError(
            QStringLiteral("\"%1\" cannot be moved into itself.").arg(item.name));
    rename(item, joinPath(folder, item.name), stop);
}

/// A rename on a phone replaces what is there, and a missing folder is none of the user's.
void AppFileAccess::rename(const FileItem& item, const QString& newPath,
                           const std::stop_token& stop) {
    const BusyPhones::Mark mark(busy_, device_.udid);
    requireName(item.name);
    const auto client = this->client(stop);
    if (!existing(*client, parentPath(newPath), stop).isDirectory)
        throw TessaryError::fileIOError(
            QStringLiteral("%1 is not a folder.").arg(parentPath(newPath)));
    const QString target = client->inContainer(newPath);
    if (client->findItem(target, stop))
        throw TessaryError::fileIOError(
            QStringLiteral("\"%1\" is already there.").arg(lastComponent(newPath)));
    client->renamePath(client->inContainer(item.path), target, stop);
}

QString AppFileAccess::stageItemForDrag(const FileItem& item, const std::stop_token& stop) {
    requireName(item.name);
    const auto isDone = std::make_shared<std::promise<void>>();
    const auto done = isDone->get_future();
    staging_.post([this, item, isDone, stop] {
        try {
            const CombinedStopToken either(stopStaging_.get_token(), stop);
            (void)staged_.fetch(*this, item, {}, either.token());
        } catch (const CancellationError&) {
            // Nobody waits for the copy any more.
        } catch (const std::exception& error) {
            DiagnosticsLogger::shared().afc.standard("Staging failed: %s",
                                                     {QString::fromUtf8(error.what())});
        }
        isDone->set_value();
    });
    (void)done.wait_for(stagingPatience);
    return staged_.pathOf(*this, item);
}

} // namespace tessary
