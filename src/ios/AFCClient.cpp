#include "ios/AFCClient.h"

#include "base/local/PartFile.h"
#include "base/text/NameOrder.h"
#include "base/text/PathNames.h"
#include "base/threads/CancellationError.h"
#include "base/threads/MainThread.h"
#include "base/values/TessaryError.h"
#include "ios/AFCConnection.h"
#include "ios/AFCStatus.h"
#include "ios/IPhoneError.h"
#include "phone/PhoneError.h"

#include <QFileInfo>

#include <algorithm>
#include <mutex>

namespace tessary {

namespace {

constexpr QLatin1Char slash('/');

/// An error as the callers of this class take it.
TessaryError oldErrorOf(const Error& error) {
    if (const auto status = error.find<AFCStatus>())
        return TessaryError::afcError(afcErrorFromStatus(static_cast<std::int32_t>(*status)));
    const QString reason = error.cause() != nullptr ? error.cause()->arguments().back().toString()
                                                    : QStringLiteral("Unknown error");
    return TessaryError::houseArrestFailed(QStringLiteral("VendDocuments/VendContainer failed: ") +
                                           reason);
}

template <typename Work>
auto withOldErrors(const Work& work) {
    try {
        return work();
    } catch (const Error& error) {
        throw oldErrorOf(error);
    }
}

/// Deeper trees are a device's mistake: paths of a real one are far shorter.
constexpr int maxDepth = 128;

FileItem itemFrom(const QString& name, const QString& path,
                  const std::optional<AFCFileInfo>& facts) {
    const AFCFileInfo info = facts.value_or(AFCFileInfo{});
    return {name, path, info.isDirectory, info.size.value_or(0), info.modifiedDate};
}

void sortForDisplay(std::vector<FileItem>& items) {
    const QCollator collator = nameCollator();
    std::stable_sort(items.begin(), items.end(), [&](const FileItem& a, const FileItem& b) {
        if (a.isDirectory != b.isDirectory)
            return a.isDirectory;
        return collator.compare(a.name, b.name) < 0;
    });
}

bool isFullFolder(AFCConnection& connection, const QString& path) {
    const auto info = connection.fileInfo(path);
    return info && info->isDirectory && !connection.readDirectory(path).isEmpty();
}

void removeTree(AFCConnection& connection, const QString& path, const std::stop_token& stop,
                int depth);

void removeContents(AFCConnection& connection, const QString& path, const std::stop_token& stop,
                    int depth) {
    if (depth >= maxDepth)
        throw TessaryError::fileIOError(
            QStringLiteral("The phone lists the folder %1 inside itself.").arg(path));
    for (const QString& name : connection.readDirectory(path)) {
        throwIfStopped(stop);
        // A name with a "/" in it would lead out of the folder that the user saw.
        if (!isSafeName(name))
            throw TessaryError::fileIOError(
                QStringLiteral("%1 holds \"%2\", which is no name of a file.").arg(path, name));
        const QString child = joinPath(path, name);
        const auto info = connection.fileInfo(child);
        if (info && info->isDirectory)
            removeTree(connection, child, stop, depth + 1);
        else
            connection.removePath(child);
    }
}

void removeTree(AFCConnection& connection, const QString& path, const std::stop_token& stop,
                int depth) {
    try {
        connection.removePath(path);
        return;
    } catch (const Error& error) {
        // Some devices have no status of its own for a folder that holds something.
        const bool mayBeFull = error.is(PhoneError::folderNotEmpty) ||
                               (error.find<AFCStatus>() == AFCStatus::unknown &&
                                !connection.isLost() && isFullFolder(connection, path));
        if (!mayBeFull)
            throw;
    }
    removeContents(connection, path, stop, depth);
    connection.removePath(path);
}

/// Sends a local file's content into an open file of the device. Returns the bytes sent.
qint64 sendContent(AFCConnection& connection, QFile& local, AFCFile& remote,
                   const std::function<void(qint64)>& pieceDone, const std::stop_token& stop) {
    std::vector<std::byte> buffer(AFCClient::chunkSize);
    qint64 sent = 0;
    while (true) {
        throwIfStopped(stop);
        const qint64 count =
            local.read(reinterpret_cast<char*>(buffer.data()), static_cast<qint64>(buffer.size()));
        if (count < 0)
            throw TessaryError::fileIOError(
                QStringLiteral("Cannot read %1: %2").arg(local.fileName(), local.errorString()));
        if (count == 0)
            return sent;
        ByteView rest(buffer.data(), static_cast<std::size_t>(count));
        while (!rest.empty()) {
            const ByteView piece = rest.first(std::min(rest.size(), connection.writeLimit()));
            const std::size_t written = remote.write(piece);
            if (written != piece.size())
                throw TessaryError::afcError(AFCError::writeError);
            rest = rest.subspan(piece.size());
        }
        sent += count;
        pieceDone(sent);
    }
}

/// Where an upload goes until it is whole: the link may break at any time, and then neither a part
/// of it nor what it was to replace can be helped any more.
QString partPathFor(const QString& path) {
    if (lastComponent(path).startsWith(PartFile::namePrefix))
        return path;
    return joinPath(parentPath(path), PartFile::newName());
}

/// Gives a whole copy its name. Not every phone replaces an older file by a renaming.
void putInPlace(AFCConnection& connection, const QString& part, const QString& path) {
    try {
        connection.renamePath(part, path);
    } catch (const Error& error) {
        const auto older = connection.fileInfo(path);
        if (!error.is(PhoneError::taken) || !older || older->isDirectory)
            throw;
        connection.removePath(path);
        connection.renamePath(part, path);
    }
}

/// A copy is whole without its date.
void setDate(AFCConnection& connection, const QString& path, const QDateTime& date) {
    try {
        connection.setModifiedDate(path, date);
    } catch (const Error&) {
        // A lost link shows at the next request.
    }
}

/// The temporary file of a download whose caller may go before it does.
class Leftover {
public:
    void remember(const QString& path) {
        const std::scoped_lock lock(mutex_);
        path_ = path;
    }
    /// The download cannot put its file in place any more.
    void remove() {
        const std::scoped_lock lock(mutex_);
        if (!path_.isEmpty())
            QFile::remove(path_);
    }

private:
    std::mutex mutex_;
    QString path_; ///< guarded by mutex_
};

/// The text that a file which cannot be made here ends with.
std::unique_ptr<PartFile> openPart(const QString& localURL) {
    try {
        return std::make_unique<PartFile>(localURL);
    } catch (const TessaryError&) {
        throw TessaryError::fileIOError(
            QStringLiteral("Cannot open local file for writing: %1").arg(localURL));
    }
}

qint64 receiveFile(AFCConnection& connection, const QString& path, const QString& localURL,
                   const std::function<void(qint64)>& pieceDone, Leftover& leftover,
                   const std::stop_token& stop) {
    AFCFile remote(connection, path, AFC_FOPEN_RDONLY);
    const std::unique_ptr<PartFile> part = openPart(localURL);
    leftover.remember(part->temporaryPath());
    std::vector<std::byte> buffer(AFCClient::chunkSize);
    while (true) {
        throwIfStopped(stop);
        const std::size_t count = remote.read(buffer);
        if (count == 0)
            break;
        part->write(ByteView(buffer.data(), count));
        pieceDone(part->size());
    }
    remote.close();
    // Asked afterwards: the file may have grown or shrunk while it was read.
    const auto info = connection.fileInfo(path);
    if (info && info->size && *info->size != part->size())
        throw TessaryError::fileIOError(
            QStringLiteral("The phone sent %1 of the %2 bytes of %3. Copy it again.")
                .arg(part->size())
                .arg(*info->size)
                .arg(lastComponent(path)));
    part->commit(info ? info->modifiedDate : std::nullopt);
    return part->size();
}

/// Callbacks with the byte counts of one file, on the main thread.
std::function<void(qint64)> postTo(const FileProgressCallback& progress, qint64 total) {
    if (!progress)
        return [](qint64) {};
    return [progress = std::make_shared<const FileProgressCallback>(progress), total](qint64 done) {
        MainThread::post([progress, done, total] { (*progress)(done, total); });
    };
}

} // namespace

AFCClient::AFCClient(std::unique_ptr<LockdownSession> session, const QString& bundleId,
                     const std::stop_token& stop, SerialQueue::Patience patience)
    : bundleId_(bundleId), queue_("com.tessary.afc", patience) {
    try {
        connection_ = queue_.run(
            [session = std::move(session), bundleId, beat = queue_.pulse()]() mutable {
                return withOldErrors([&] {
                    return std::make_shared<AFCConnection>(std::move(session), bundleId,
                                                           std::move(beat));
                });
            },
            stop);
    } catch (const QueueStalled&) {
        throw TessaryError::afcError(AFCError::opTimeout);
    }
    workingRootPath_ = connection_->workingRootPath();
}

AFCClient::~AFCClient() {
    // Closed where it was used: saying goodbye to a silent phone takes its time.
    queue_.post([connection = std::move(connection_)] {});
}

bool AFCClient::isLost() const {
    return connection_->isLost();
}

QString AFCClient::resolveRemotePath(const QString& path, const QString& workingRootPath) {
    if (workingRootPath.isEmpty() || workingRootPath == slash)
        return path;
    const QString root =
        workingRootPath.startsWith(slash) ? workingRootPath : slash + workingRootPath;
    if (path == slash)
        return root;
    if (path.startsWith(root))
        return path;
    return path.startsWith(slash) ? root + path : root + slash + path;
}

QString AFCClient::inContainer(const QString& path) const {
    if (workingRootPath_ == slash)
        return path;
    return path == slash ? workingRootPath_ : workingRootPath_ + path;
}

template <typename Work>
auto AFCClient::onQueue(Work work, const std::stop_token& stop) {
    throwIfStopped(stop);
    if (connection_->isLost())
        throw TessaryError::afcError(AFCError::serviceNotConnected);
    try {
        return queue_.run(
            [connection = connection_, work = std::move(work)]() mutable {
                return withOldErrors([&] { return work(*connection); });
            },
            stop);
    } catch (const QueueStalled&) {
        connection_->markLost();
        throw TessaryError::afcError(AFCError::opTimeout);
    }
}

std::vector<FileItem> AFCClient::listContents(const QString& at, const std::stop_token& stop,
                                              EntryFacts facts, std::vector<SkippedItem>* links) {
    const bool takesLinks = links == nullptr;
    auto [listed, found] = onQueue(
        [at, stop, facts, takesLinks, path = resolveRemotePath(at)](AFCConnection& connection) {
            const QStringList names = connection.readDirectory(path);
            std::vector<FileItem> items;
            std::vector<SkippedItem> skipped;
            items.reserve(static_cast<std::size_t>(names.size()));
            for (const QString& name : names) {
                throwIfStopped(stop);
                const auto info = connection.fileInfo(joinPath(path, name));
                if (!info && facts == EntryFacts::required)
                    throw TessaryError::fileIOError(
                        QStringLiteral("The phone does not tell what %1 is.")
                            .arg(joinPath(at, name)));
                if (info && info->isLink && !takesLinks)
                    skipped.push_back({joinPath(at, name),
                                       QStringLiteral("it is a link; links are not followed")});
                else
                    items.push_back(itemFrom(name, joinPath(at, name), info));
            }
            connection.requireLink();
            sortForDisplay(items);
            return std::pair(std::move(items), std::move(skipped));
        },
        stop);
    if (links != nullptr)
        *links = std::move(found);
    return std::move(listed);
}

FileItem AFCClient::itemAt(const QString& path, const std::stop_token& stop) {
    auto item = findItem(path, stop);
    if (!item)
        throw TessaryError::afcError(AFCError::objectNotFound);
    return *std::move(item);
}

std::optional<FileItem> AFCClient::findItem(const QString& path, const std::stop_token& stop) {
    return onQueue(
        [path, resolved = resolveRemotePath(path)](AFCConnection& connection) {
            const auto info = connection.fileInfo(resolved);
            return info ? std::optional(itemFrom(lastComponent(path), path, info)) : std::nullopt;
        },
        stop);
}

void AFCClient::createDirectory(const QString& at, const std::stop_token& stop) {
    onQueue([path = resolveRemotePath(at)](
                AFCConnection& connection) { connection.makeDirectory(path); },
            stop);
}

void AFCClient::removePath(const QString& path, const std::stop_token& stop) {
    onQueue([resolved = resolveRemotePath(path),
             stop](AFCConnection& connection) { removeTree(connection, resolved, stop, 0); },
            stop);
}

void AFCClient::removeEntry(const QString& path, const std::stop_token& stop) {
    onQueue([resolved = resolveRemotePath(path)](
                AFCConnection& connection) { connection.removePath(resolved); },
            stop);
}

void AFCClient::renamePath(const QString& from, const QString& to, const std::stop_token& stop) {
    onQueue([source = resolveRemotePath(from), target = resolveRemotePath(to)](
                AFCConnection& connection) { connection.renamePath(source, target); },
            stop);
}

void AFCClient::setModifiedDate(const QString& path, const QDateTime& date,
                                const std::stop_token& stop) {
    onQueue([resolved = resolveRemotePath(path),
             date](AFCConnection& connection) { connection.setModifiedDate(resolved, date); },
            stop);
}

void AFCClient::uploadFile(const QString& localURL, const QString& remotePath,
                           const FileProgressCallback& progress, const std::stop_token& stop) {
    upload(localURL, remotePath, postTo(progress, QFileInfo(localURL).size()), stop);
}

void AFCClient::upload(const QString& localURL, const QString& remotePath,
                       const PieceDone& pieceDone, const std::stop_token& stop) {
    onQueue(
        [=, path = resolveRemotePath(remotePath)](AFCConnection& connection) {
            QFile local(localURL);
            // Opening a pipe would wait for its other end.
            if (!QFileInfo(localURL).isFile() ||
                !local.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
                throw TessaryError::fileIOError(
                    QStringLiteral("Cannot open local file for reading: %1").arg(localURL));
            const qint64 total = local.size();
            const QString part = partPathFor(path);
            AFCFile remote(connection, part, AFC_FOPEN_WR);
            try {
                const qint64 sent = sendContent(connection, local, remote, pieceDone, stop);
                remote.close();
                if (sent != total)
                    throw TessaryError::afcError(AFCError::writeError);
                setDate(connection, part, local.fileTime(QFileDevice::FileModificationTime));
                if (part != path)
                    putInPlace(connection, part, path);
            } catch (...) {
                try {
                    remote.close();
                    connection.removePath(part);
                } catch (const Error&) {
                    // The first failure counts.
                }
                throw;
            }
        },
        stop);
}

qint64 AFCClient::downloadFile(const QString& remotePath, const QString& localURL, qint64 fileSize,
                               const FileProgressCallback& progress, const std::stop_token& stop) {
    return download(remotePath, localURL, postTo(progress, fileSize), stop);
}

qint64 AFCClient::download(const QString& remotePath, const QString& localURL,
                           const PieceDone& pieceDone, const std::stop_token& stop) {
    const auto leftover = std::make_shared<Leftover>();
    try {
        return onQueue(
            [=, path = resolveRemotePath(remotePath)](AFCConnection& connection) {
                return receiveFile(connection, path, localURL, pieceDone, *leftover, stop);
            },
            stop);
    } catch (...) {
        leftover->remove();
        throw;
    }
}

QByteArray AFCClient::readSampleBytes(const QString& remotePath, std::uint32_t maxBytes,
                                      const std::stop_token& stop) {
    return onQueue(
        [maxBytes, path = resolveRemotePath(remotePath)](AFCConnection& connection) {
            AFCFile remote(connection, path, AFC_FOPEN_RDONLY);
            QByteArray sample(static_cast<qsizetype>(maxBytes), Qt::Uninitialized);
            const std::size_t count = remote.read(
                {reinterpret_cast<std::byte*>(sample.data()), static_cast<std::size_t>(maxBytes)});
            sample.truncate(static_cast<qsizetype>(count));
            return sample;
        },
        stop);
}

} // namespace tessary
