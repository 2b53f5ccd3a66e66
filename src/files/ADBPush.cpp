#include "files/ADBTransfer.h"

#include "core/CancellationError.h"
#include "core/DiagnosticsLogger.h"
#include "core/TessaryError.h"
#include "files/ADBPaths.h"
#include "files/DevicePath.h"

#include <QFileInfo>

#include <algorithm>

namespace tessary {

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

[[noreturn]] void failPush(const QString& name, const QString& reason) {
    DiagnosticsLogger::shared().adb.error("ADB push failed: %s", {reason});
    throw TessaryError::fileIOError(QStringLiteral("ADB push failed for ") + name +
                                    QStringLiteral(": ") + reason);
}

/// Asks the phone every now and then how much has arrived while a push runs.
class PushWatch {
public:
    PushWatch(const ADBShell& shell, const QString& remotePath, qint64 total,
              const FileProgressCallback& progress)
        : shell_(shell), remotePath_(remotePath), total_(total), progress_(progress) {}

    void look() {
        constexpr auto interval = 100ms;
        constexpr auto patience = 2s;
        constexpr int restBetweenLooks = 15; // times as long as a look took: it slows the push down
        const auto begin = Clock::now();
        if (begin < next_)
            return;
        const ProcessResult result = shell_.tool().run(shell_.tool().request(
            shell_.device(),
            {QStringLiteral("shell"), QStringLiteral("stat"), QStringLiteral("-c"),
             QStringLiteral("%s"), phoneShellQuoted(remotePath_)},
            patience, shell_.stopToken()));
        bool isNumber = false;
        const qint64 arrived = result.standardOutput.trimmed().toLongLong(&isNumber);
        const bool isKnown = result.succeeded() && isNumber;
        const qint64 shown = isKnown ? std::min(arrived, total_)
                                     : estimatedPushProgress(Clock::now() - start_, total_);
        if (isKnown && arrived != lastArrived_) {
            lastArrived_ = arrived;
            lastChange_ = Clock::now();
        } else if (Clock::now() - lastChange_ > adbStallLimit) {
            throw TessaryError::fileIOError(QStringLiteral(
                "The phone takes nothing any more. Unplug it and plug it in again."));
        }
        if (progress_)
            progress_(std::max<qint64>(shown, 0), total_);
        const Clock::duration rest = restBetweenLooks * (Clock::now() - begin);
        next_ = std::max(begin + interval, Clock::now() + std::min<Clock::duration>(rest, 1s));
    }

private:
    const ADBShell& shell_;
    const QString& remotePath_;
    const qint64 total_;
    const FileProgressCallback& progress_;
    const Clock::time_point start_ = Clock::now();
    Clock::time_point next_ = start_ + 100ms;
    qint64 lastArrived_ = -1;
    Clock::time_point lastChange_ = start_;
};

enum class TargetFolder { isKnown, isChecked };

/// Pushes one file into a folder. Each question to the phone takes time: all are asked in one.
void pushOne(const ADBShell& shell, const QString& localFile, const QString& remoteFolder,
             TargetFolder targetFolder, const FileProgressCallback& progress) {
    const QFileInfo local(localFile);
    const QString name = local.fileName();
    requireUsableName(name);
    if (!local.isFile() || !local.isReadable())
        throw TessaryError::fileIOError(QStringLiteral("Cannot read %1.").arg(localFile));
    const qint64 total = local.size();
    const QString remote = joinPath(remoteFolder, name);
    QStringList asked{remote + QLatin1Char('/')};
    if (targetFolder == TargetFolder::isChecked)
        asked += {remoteFolder, remoteFolder + QLatin1Char('/')};
    const auto present = shell.stat(asked);
    if (targetFolder == TargetFolder::isChecked)
        ADBShell::requireFolder(remoteFolder, present[1], present[2]);
    // adb would put the file into a folder of its name.
    if (present[0])
        throw TessaryError::fileIOError(
            QStringLiteral("A folder \"%1\" is already on the phone.").arg(name));
    if (progress)
        progress(0, total);
    PushWatch watch(shell, remote, total, progress);
    ProcessRequest request = shell.tool().request(
        shell.device(), {QStringLiteral("push"), local.absoluteFilePath(), remote}, std::nullopt,
        shell.stopToken());
    request.whileRunning = [&] { watch.look(); };
    const ProcessResult result = shell.tool().run(request);
    if (const QString reason = adbFailure(result); !reason.isEmpty())
        failPush(name, reason);
    const auto arrived = shell.stat(remote);
    if (!arrived)
        failPush(name, QStringLiteral("the phone does not have the file."));
    if (arrived->size != total)
        failPush(name,
                 QStringLiteral("the phone has %1 of %2 bytes.").arg(arrived->size).arg(total));
    if (progress)
        progress(total, total);
}

/// Files of one folder that travel in one command.
struct Batch {
    QString remoteFolder;
    QString relativeFolder; ///< empty for the copied folder itself
    std::vector<LocalEntry> files;
    qint64 bytes = 0;
};

std::vector<Batch> batchesOf(const std::vector<LocalEntry>& entries, const QString& remote) {
    constexpr std::size_t mostFiles = 64;
    constexpr qint64 mostBytes = qint64{64} << 20;
    std::vector<Batch> batches;
    for (const LocalEntry& entry : entries) {
        if (entry.isDirectory)
            continue;
        const qsizetype last = entry.relativePath.lastIndexOf(QLatin1Char('/'));
        const QString folder = last < 0 ? QString() : entry.relativePath.left(last);
        const bool fits = !batches.empty() && batches.back().relativeFolder == folder &&
                          batches.back().files.size() < mostFiles &&
                          batches.back().bytes + entry.size <= mostBytes;
        if (!fits)
            batches.push_back(
                {folder.isEmpty() ? remote : joinPath(remote, folder), folder, {}, 0});
        batches.back().files.push_back(entry);
        batches.back().bytes += entry.size;
    }
    return batches;
}

class FolderPush {
public:
    FolderPush(const ADBShell& shell, QString localFolder, QString remoteFolder,
               const TransferProgressCallback& progress)
        : shell_(shell),
          localFolder_(std::move(localFolder)),
          remoteFolder_(std::move(remoteFolder)),
          progress_(progress) {}

    TransferOutcome run() {
        const LocalTree tree = collectLocalFiles(localFolder_);
        outcome_.skipped = tree.skipped;
        state().totalFiles = tree.fileCount;
        state().totalBytes = tree.byteCount;
        report();
        makeFolders(tree);
        for (const Batch& batch : batchesOf(tree.entries, remoteFolder_)) {
            throwIfStopped(shell_.stopToken());
            if (batch.files.size() == 1 || !pushTogether(batch))
                for (const LocalEntry& file : batch.files)
                    pushAlone(file, batch.remoteFolder);
        }
        return std::move(outcome_);
    }

private:
    TransferProgress& state() {
        return outcome_.progress;
    }
    void report() {
        if (progress_)
            progress_(state());
    }
    QString localPath(const LocalEntry& file) const {
        return joinPath(localFolder_, file.relativePath);
    }

    /// Makes the folders that hold no other folder; those above come with them.
    void makeFolders(const LocalTree& tree) {
        QStringList folders{remoteFolder_};
        for (const LocalEntry& entry : tree.entries) {
            if (!entry.isDirectory)
                continue;
            const QString path = joinPath(remoteFolder_, entry.relativePath);
            if (path.startsWith(folders.last() + QLatin1Char('/')))
                folders.last() = path;
            else
                folders.append(path);
        }
        for (const QString& folder : folders) {
            const ProcessResult made =
                shell_.run(QStringLiteral("mkdir -p ") + phoneShellQuoted(folder));
            if (!shell_.stat(folder + QLatin1Char('/')))
                throw TessaryError::fileIOError(
                    QStringLiteral("The folder %1 cannot be made on the phone. %2")
                        .arg(folder, adbFailure(made)));
        }
    }

    /// False when the files have to be tried one by one.
    bool pushTogether(const Batch& batch) {
        QStringList words{QStringLiteral("push")};
        QStringList remotes;
        for (const LocalEntry& file : batch.files) {
            words.append(localPath(file));
            remotes.append(joinPath(batch.remoteFolder, lastComponent(file.relativePath)));
        }
        words.append(batch.remoteFolder + QLatin1Char('/'));
        const ProcessResult result = shell_.tool().run(
            shell_.tool().request(shell_.device(), words, adbStallLimit, shell_.stopToken()));
        if (isAdbConnectionFailure(result))
            failPush(lastComponent(localFolder_), adbFailure(result));
        if (!result.succeeded())
            return false;
        const auto arrived = shell_.stat(remotes);
        for (std::size_t n = 0; n < arrived.size(); ++n) {
            const LocalEntry& file = batch.files[n];
            if (!arrived[n] || arrived[n]->size != QFileInfo(localPath(file)).size()) {
                pushAlone(file, batch.remoteFolder);
                continue;
            }
            ++state().completedFiles;
            state().completedBytes += file.size;
        }
        report();
        return true;
    }

    void pushAlone(const LocalEntry& file, const QString& remoteFolder) {
        throwIfStopped(shell_.stopToken());
        state().currentFileTotal = file.size;
        try {
            pushOne(shell_, localPath(file), remoteFolder, TargetFolder::isKnown,
                    [&](qint64 sent, qint64) {
                        state().currentFileBytes = sent;
                        report();
                    });
            ++state().completedFiles;
            state().completedBytes += file.size;
        } catch (const TessaryError& error) {
            // A phone that still answers has refused this one file.
            (void)shell_.stat(remoteFolder);
            outcome_.skipped.push_back({localPath(file), error.message()});
        }
        state().currentFileBytes = 0;
        state().currentFileTotal = 0;
        report();
    }

    const ADBShell& shell_;
    const QString localFolder_;
    const QString remoteFolder_;
    const TransferProgressCallback& progress_;
    TransferOutcome outcome_;
};

} // namespace

qint64 estimatedPushProgress(std::chrono::duration<double> passed, qint64 total) {
    constexpr double bytesPerSecond = 20'971'520;
    constexpr double shortest = 0.5; // s
    constexpr double most = 0.9;
    if (total <= 0)
        return 0;
    const double whole = std::max(static_cast<double>(total) / bytesPerSecond, shortest);
    const double fraction = std::clamp(passed.count() / whole, 0.0, most);
    return std::clamp(static_cast<qint64>(fraction * static_cast<double>(total)), qint64{0},
                      total - 1);
}

void pushFile(const ADBShell& shell, const QString& localFile, const QString& remoteFolder,
              const FileProgressCallback& progress) {
    pushOne(shell, localFile, remoteFolder, TargetFolder::isChecked, progress);
}

TransferOutcome pushFolder(const ADBShell& shell, const QString& localFolder,
                           const QString& remoteFolder, const TransferProgressCallback& progress) {
    const QString name = lastComponent(localFolder);
    requireUsableName(name);
    shell.requireFolder(remoteFolder);
    return FolderPush(shell, localFolder, joinPath(remoteFolder, name), progress).run();
}

} // namespace tessary
