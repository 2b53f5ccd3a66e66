#include "ios/AFCClient.h"

#include "base/local/LocalTree.h"
#include "base/log/DiagnosticsLogger.h"
#include "base/text/ByteCount.h"
#include "base/text/PathNames.h"
#include "base/threads/CancellationError.h"
#include "base/threads/MainThread.h"
#include "base/values/TessaryError.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

namespace tessary {

namespace {

constexpr int maxDepth = 128;

/// The counters of a folder transfer, and who hears of them on the main thread.
class FolderProgress {
public:
    explicit FolderProgress(const TransferProgressCallback& callback)
        : callback_(callback ? std::make_shared<const TransferProgressCallback>(callback)
                             : nullptr) {}

    TransferProgress state;

    void report() const {
        post(callback_, state);
    }
    /// What reports the pieces of the file that is next. Owns all that it uses.
    [[nodiscard]] std::function<void(qint64)> pieces(qint64 size) {
        state.currentFileTotal = size;
        return [callback = callback_, now = state](qint64 done) mutable {
            now.currentFileBytes = done;
            post(callback, now);
        };
    }
    /// The file is across; what was moved counts, not what had been announced.
    void finishFile(qint64 announced, qint64 moved) {
        state.totalBytes = addByteCounts(std::max<qint64>(state.totalBytes - announced, 0), moved);
        state.completedBytes = addByteCounts(state.completedBytes, moved);
        ++state.completedFiles;
        leaveFile();
    }
    void leaveFile() {
        state.currentFileBytes = 0;
        state.currentFileTotal = 0;
        report();
    }

private:
    using Callback = std::shared_ptr<const TransferProgressCallback>;

    static void post(const Callback& callback, const TransferProgress& now) {
        if (callback)
            MainThread::post([callback, now] { (*callback)(now); });
    }

    Callback callback_;
};

struct PlannedFolder {
    QString remotePath;
    QString localPath;
};

struct PlannedFile {
    FileItem item;
    QString localPath;
};

/// Walks the device and decides what goes where. Touches nothing on this machine.
class DownloadPlan {
public:
    DownloadPlan(AFCClient& client, const std::stop_token& stop) : client_(client), stop_(stop) {}

    void walk(const QString& remotePath, const QString& localPath, int depth = 0) {
        folders.push_back({remotePath, localPath});
        std::vector<FileItem> items;
        std::vector<SkippedItem> links;
        try {
            items =
                client_.listContents(remotePath, stop_, AFCClient::EntryFacts::optional, &links);
        } catch (const TessaryError& error) {
            if (depth == 0 || client_.isLost())
                throw;
            skipped.push_back({remotePath, error.description()});
        }
        skipped.insert(skipped.end(), links.begin(), links.end());
        QSet<QString> taken;
        for (FileItem& item : items) {
            const QString name = lastComponentIfSafe(item.name);
            if (name.isEmpty()) {
                skip(item, QStringLiteral("its name cannot be used on this computer"));
            } else if (isTooLongName(name)) {
                skip(item, QStringLiteral("its name is too long for this computer"));
            } else if (taken.contains(name)) {
                skip(item, QStringLiteral("another entry has the same name on this computer"));
            } else if (item.isDirectory && depth >= maxDepth) {
                skip(item, QStringLiteral("the phone lists this folder inside itself"));
            } else {
                taken.insert(name);
                const QString local = joinPath(localPath, name);
                if (item.isDirectory) {
                    walk(item.path, local, depth + 1);
                } else {
                    byteCount = addByteCounts(byteCount, item.size);
                    files.push_back({std::move(item), local});
                }
            }
        }
    }

    std::vector<PlannedFolder> folders; ///< a folder comes before what it holds
    std::vector<PlannedFile> files;
    std::vector<SkippedItem> skipped;
    qint64 byteCount = 0;

private:
    /// The name as a local file system has it; empty when it cannot have it.
    static QString lastComponentIfSafe(const QString& name) {
        return isSafeName(name) ? QFile::decodeName(QFile::encodeName(name)) : QString();
    }
    void skip(const FileItem& item, const QString& reason) {
        skipped.push_back({item.path, reason});
    }

    AFCClient& client_;
    const std::stop_token& stop_;
};

/// Whether a path lies in one of the folders that could not be made.
bool isBelowAny(const QStringList& folders, const QString& path) {
    return std::any_of(folders.begin(), folders.end(), [&](const QString& folder) {
        return path.startsWith(folder + QLatin1Char('/'));
    });
}

/// Whether a failed upload says nothing about the next one.
bool concernsOneFile(const TessaryError& error) {
    return error.kind() == TessaryError::Case::fileIOError ||
           (error.kind() == TessaryError::Case::afcError && error.afc() != AFCError::noSpaceLeft &&
            error.afc() != AFCError::opTimeout);
}

} // namespace

TransferOutcome AFCClient::uploadDirectory(const QString& localURL, const QString& remotePath,
                                           const TransferProgressCallback& progress,
                                           const std::stop_token& stop) {
    LocalTree tree = collectLocalFiles(localURL);
    TransferOutcome outcome;
    outcome.skipped = std::move(tree.skipped);
    FolderProgress folder(progress);
    folder.state.totalFiles = tree.fileCount;
    folder.state.totalBytes = tree.byteCount;
    folder.report();

    QStringList unusable; // relative paths of folders that the device refuses
    const auto makeFolder = [&](const QString& path) -> std::optional<QString> {
        try {
            createDirectory(path, stop);
        } catch (const TessaryError& error) {
            if (isLost() || !concernsOneFile(error))
                throw;
            try {
                if (itemAt(path, stop).isDirectory)
                    return std::nullopt;
            } catch (const TessaryError&) {
                // It is not there: the refusal says why.
            }
            return error.description();
        }
        return std::nullopt;
    };
    (void)makeFolder(remotePath);
    for (const LocalEntry& entry : tree.entries) {
        if (!entry.isDirectory || isBelowAny(unusable, entry.relativePath))
            continue;
        if (const auto refusal = makeFolder(joinPath(remotePath, entry.relativePath))) {
            unusable.append(entry.relativePath);
            outcome.skipped.push_back({entry.relativePath, *refusal});
        }
    }
    for (const LocalEntry& entry : tree.entries) {
        if (entry.isDirectory || isBelowAny(unusable, entry.relativePath))
            continue;
        try {
            upload(joinPath(localURL, entry.relativePath), joinPath(remotePath, entry.relativePath),
                   folder.pieces(entry.size), stop);
            folder.finishFile(entry.size, entry.size);
        } catch (const TessaryError& error) {
            if (isLost() || !concernsOneFile(error))
                throw;
            outcome.skipped.push_back({entry.relativePath, error.description()});
            folder.leaveFile();
        }
    }
    outcome.progress = folder.state;
    return outcome;
}

TransferOutcome AFCClient::downloadDirectory(const QString& remotePath, const QString& localURL,
                                             const TransferProgressCallback& progress,
                                             const std::stop_token& stop) {
    DownloadPlan plan(*this, stop);
    // Written out, so that no name in it is taken for the root's.
    plan.walk(resolveRemotePath(remotePath), localURL);
    TransferOutcome outcome;
    outcome.skipped = std::move(plan.skipped);
    FolderProgress folder(progress);
    folder.state.totalFiles = static_cast<qint64>(plan.files.size());
    folder.state.totalBytes = plan.byteCount;
    folder.report();

    if (!QDir().mkpath(localURL))
        throw TessaryError::fileIOError(
            QStringLiteral("Cannot create the folder %1 on this computer.").arg(localURL));
    QStringList unusable; // local folders that cannot be made: a file is in the way
    for (const PlannedFolder& planned : plan.folders) {
        if (isBelowAny(unusable, planned.localPath) || QDir().mkpath(planned.localPath))
            continue;
        unusable.append(planned.localPath);
        outcome.skipped.push_back(
            {planned.remotePath, QStringLiteral("the folder cannot be created on this computer")});
    }
    for (const PlannedFile& file : plan.files) {
        if (isBelowAny(unusable, file.localPath))
            continue;
        try {
            const qint64 size =
                download(file.item.path, file.localPath, folder.pieces(file.item.size), stop);
            folder.finishFile(file.item.size, size);
        } catch (const TessaryError& error) {
            DiagnosticsLogger::shared().afc.error("Skipped failed file %s: %s",
                                                  {file.item.path, error.description()});
            if (isLost())
                throw;
            outcome.skipped.push_back({file.item.path, error.description()});
            folder.leaveFile();
        }
    }
    outcome.progress = folder.state;
    return outcome;
}

} // namespace tessary
