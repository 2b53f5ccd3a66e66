#pragma once

#include "base/local/LocalTree.h"
#include "base/threads/SerialQueue.h"
#include "ios/LockdownSession.h"
#include "phone/TransferOutcome.h"
#include "phone/records/FileItem.h"

#include <QString>

#include <memory>
#include <stop_token>
#include <vector>

namespace tessary {

class AFCConnection;

/// The documents of one app of an iPhone. Thread-safe: every request runs on the client's own
/// serial queue ("com.tessary.afc"), one operation at a time; folder transfers let other calls in
/// between two files. Calls block. Once `stop` asks, they end with CancellationError: at the next
/// piece of data, or after a second when the phone is silent.
///
/// Failures are TessaryError: `afcError` with the device's status, `fileIOError` for files here.
/// A client whose device has gone fails every call; its owner makes a new one.
///
/// Progress is delivered on the main thread, asynchronously, once a piece; it may still arrive
/// after the call has ended, so that the callback must own what it uses.
class AFCClient {
public:
    static constexpr std::size_t chunkSize = std::size_t{1} << 20;

    /// Whether an entry may be listed although the device does not tell what it is.
    enum class EntryFacts { optional, required };

    /// Opens the container of an app. Throws TessaryError::houseArrestFailed or ::afcError.
    AFCClient(std::unique_ptr<LockdownSession> session, const QString& bundleId,
              const std::stop_token& stop = {}, SerialQueue::Patience patience = {});
    /// Closes the connection; waits for it for a second at most.
    ~AFCClient();
    AFCClient(const AFCClient&) = delete;
    AFCClient& operator=(const AFCClient&) = delete;

    [[nodiscard]] const QString& bundleId() const {
        return bundleId_;
    }
    [[nodiscard]] const QString& workingRootPath() const {
        return workingRootPath_;
    }
    /// Whether the connection has failed for good.
    [[nodiscard]] bool isLost() const;

    /// A path of the container as the device has it. Asks no device.
    [[nodiscard]] QString resolveRemotePath(const QString& path) const {
        return resolveRemotePath(path, workingRootPath_);
    }
    [[nodiscard]] static QString resolveRemotePath(const QString& path,
                                                   const QString& workingRootPath);

    /// A path below workingRootPath() as a path of the container: written out, so that a folder
    /// called like the root is not taken for it.
    [[nodiscard]] QString inContainer(const QString& path) const;

    /// Folders first, then by name. Names are hostile. Links are listed as files, unless there are
    /// `links` to put them into, with the reason why they cannot be copied.
    [[nodiscard]] std::vector<FileItem> listContents(const QString& at,
                                                     const std::stop_token& stop = {},
                                                     EntryFacts facts = EntryFacts::optional,
                                                     std::vector<SkippedItem>* links = nullptr);
    /// One path. `objectNotFound` when the device does not tell what is there.
    [[nodiscard]] FileItem itemAt(const QString& path, const std::stop_token& stop = {});
    /// The same; no value when there is nothing, or the device does not tell.
    [[nodiscard]] std::optional<FileItem> findItem(const QString& path,
                                                   const std::stop_token& stop = {});
    void createDirectory(const QString& at, const std::stop_token& stop = {});
    /// Removes a file, or a folder with everything in it; the first failure ends it.
    void removePath(const QString& path, const std::stop_token& stop = {});
    /// Removes a file or an empty folder; one that holds something fails.
    void removeEntry(const QString& path, const std::stop_token& stop = {});
    /// Replaces what may be at `to`.
    void renamePath(const QString& from, const QString& to, const std::stop_token& stop = {});
    void setModifiedDate(const QString& path, const QDateTime& date,
                         const std::stop_token& stop = {});

    /// Copies a local file, with its date where the device takes one. It appears whole, in the
    /// place of an older one, or not at all; what has arrived of a copy that fails or is cancelled
    /// is removed again while the link lasts.
    void uploadFile(const QString& localURL, const QString& remotePath,
                    const FileProgressCallback& progress = {}, const std::stop_token& stop = {});
    /// Copies a file to a local one, with its date: whole or not at all. `fileSize` is the total
    /// for `progress`. Returns the number of bytes.
    qint64 downloadFile(const QString& remotePath, const QString& localURL, qint64 fileSize,
                        const FileProgressCallback& progress = {},
                        const std::stop_token& stop = {});
    /// The first bytes of a file, at most `maxBytes`.
    [[nodiscard]] QByteArray readSampleBytes(const QString& remotePath, std::uint32_t maxBytes,
                                             const std::stop_token& stop = {});

    /// Copies a local folder's content into a folder of the device, which is made when missing.
    /// What cannot be read here, or is refused there, is left out and named.
    [[nodiscard]] TransferOutcome uploadDirectory(const QString& localURL,
                                                  const QString& remotePath,
                                                  const TransferProgressCallback& progress = {},
                                                  const std::stop_token& stop = {});
    /// The other way round. The folder is walked first, so that the totals are true from the
    /// first byte on.
    [[nodiscard]] TransferOutcome downloadDirectory(const QString& remotePath,
                                                    const QString& localURL,
                                                    const TransferProgressCallback& progress = {},
                                                    const std::stop_token& stop = {});

private:
    using PieceDone = std::function<void(qint64 done)>;

    /// Runs `work(AFCConnection&)` on the queue; it must own all that it uses.
    template <typename Work>
    auto onQueue(Work work, const std::stop_token& stop);
    void upload(const QString& localURL, const QString& remotePath, const PieceDone& pieceDone,
                const std::stop_token& stop);
    qint64 download(const QString& remotePath, const QString& localURL, const PieceDone& pieceDone,
                    const std::stop_token& stop);

    const QString bundleId_;
    SerialQueue queue_;
    std::shared_ptr<AFCConnection> connection_; ///< shared with work that outlives its caller
    QString workingRootPath_;
};

} // namespace tessary
