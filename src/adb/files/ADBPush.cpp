#include "adb/files/ADBTransfer.h"

#include "adb/files/LsOutput.h"
#include "base/local/PartFile.h"
#include "base/log/DiagnosticsLogger.h"
#include "base/threads/CancellationError.h"
#include "base/values/TessaryError.h"
#include "phone/DevicePath.h"
#include "phone/PhoneNames.h"

#include <QFileInfo>
#include <QSet>

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

/// A file on the phone that goes with this, unless it was put in its place.
class RemotePart {
public:
    RemotePart(const ADBShell& shell, const QString& folder)
        : shell_(shell.tool(), shell.device(), {}), path_(joinPath(folder, PartFile::newName())) {}
    ~RemotePart() {
        if (isInPlace_)
            return;
        try {
            // The phone removes what it has of a push that breaks off: this is for the rest.
            constexpr auto patience = 3s;
            shell_.run(QStringLiteral("rm -f ") + phoneShellQuoted(path_), patience);
        } catch (const std::exception&) {
            // The failure that led here is the one to report.
        }
    }
    RemotePart(const RemotePart&) = delete;
    RemotePart& operator=(const RemotePart&) = delete;

    [[nodiscard]] const QString& path() const {
        return path_;
    }
    void setInPlace() {
        isInPlace_ = true;
    }

private:
    const ADBShell shell_; // not stopped with the copy
    const QString path_;
    bool isInPlace_ = false;
};

/// Sends the bytes to a path where nothing is, and compares the sizes.
void sendBytes(const ADBShell& shell, const QFileInfo& local, const QString& remote,
               const FileProgressCallback& progress) {
    const QString name = local.fileName();
    const qint64 total = local.size();
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
}

/// A storage that ignores case finds a file under a name that is not its own.
void requireOwnSpelling(const ADBShell& shell, const QString& folder, const QString& name) {
    const ProcessResult listed =
        shell.run(QStringLiteral("ls -la ") + phoneShellQuoted(folder + QLatin1Char('/')));
    QString other;
    for (const FileItem& item : parseLsOutput(listed.standardOutput, folder)) {
        if (item.name == name)
            return;
        if (isSameToPhones(item.name, name))
            other = item.name;
    }
    if (!other.isEmpty())
        throwSameToPhone(other, name);
}

/// Puts a file in the place of another: adb itself would first delete the old one.
void replaceFile(const ADBShell& shell, const LocalSource& source, const QString& folder,
                 const FileProgressCallback& progress) {
    const QFileInfo local(source.path);
    const QString& name = source.name;
    const QString remote = joinPath(folder, name);
    requireOwnSpelling(shell, folder, name);
    RemotePart part(shell, folder);
    sendBytes(shell, local, part.path(), progress);
    const ProcessResult moved = shell.run(QStringLiteral("mv -f ") + phoneShellQuoted(part.path()) +
                                          QLatin1Char(' ') + phoneShellQuoted(remote));
    const auto after = shell.stat({part.path(), remote});
    if (after[0] || !after[1] || after[1]->size != local.size())
        failPush(name, QStringLiteral("the phone did not put it in the place of the old file. %1")
                           .arg(adbFailure(moved))
                           .trimmed());
    part.setInPlace();
}

enum class TargetFolder { isKnown, isChecked };

/// Pushes one file into a folder. Each question to the phone takes time: all are asked in one.
void pushOne(const ADBShell& shell, const LocalSource& source, const QString& remoteFolder,
             TargetFolder targetFolder, const FileProgressCallback& progress) {
    const QFileInfo local(source.path);
    const QString& name = source.name;
    requireNameForADB(name);
    if (!local.isFile() || !local.isReadable())
        throw TessaryError::fileIOError(QStringLiteral("Cannot read %1.").arg(source.path));
    const qint64 total = local.size();
    const QString remote = joinPath(remoteFolder, name);
    QStringList asked{remote, remote + QLatin1Char('/')};
    if (targetFolder == TargetFolder::isChecked)
        asked += {remoteFolder, remoteFolder + QLatin1Char('/')};
    const auto present = shell.stat(asked);
    if (targetFolder == TargetFolder::isChecked)
        ADBShell::requireFolder(remoteFolder, present[2], present[3]);
    // adb would put the file into a folder of its name.
    if (present[1])
        throw TessaryError::fileIOError(
            QStringLiteral("A folder \"%1\" is already on the phone.").arg(name));
    if (present[0])
        replaceFile(shell, source, remoteFolder, progress);
    else
        sendBytes(shell, local, remote, progress);
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
            const std::vector<LocalEntry> rest = pushTogether(batch);
            for (const LocalEntry& file : rest)
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
        isNew_ = !shell_.stat(remoteFolder_);
        QStringList commands;
        QStringList asked;
        for (const QString& folder : folders) {
            commands.append(QStringLiteral("mkdir -p ") + phoneShellQuoted(folder));
            asked.append(folder + QLatin1Char('/'));
        }
        const std::vector<ProcessResult> made = shell_.runEach(commands);
        const auto there = shell_.stat(asked);
        for (std::size_t n = 0; n < there.size(); ++n)
            if (!there[n])
                throw TessaryError::fileIOError(
                    QStringLiteral("The folder %1 cannot be made on the phone. %2")
                        .arg(folders[static_cast<qsizetype>(n)], adbFailure(made.back())));
    }

    /// The files of a batch that have to travel alone: those that are on the phone already, and
    /// those whose names a phone may not tell from another's.
    std::vector<LocalEntry> takeSingleFiles(Batch& batch) {
        std::vector<std::optional<ADBFileFacts>> present(batch.files.size());
        if (!isNew_)
            present = shell_.stat(remotePaths(batch));
        QSet<QString> names;
        std::vector<LocalEntry> together;
        std::vector<LocalEntry> alone;
        for (std::size_t n = 0; n < batch.files.size(); ++n) {
            const LocalEntry& file = batch.files[n];
            const QString name = nameForPhones(lastComponent(file.relativePath));
            const bool isSingle = present[n] || names.contains(name);
            names.insert(name);
            (isSingle ? alone : together).push_back(file);
        }
        batch.files = std::move(together);
        return alone;
    }

    static QStringList remotePaths(const Batch& batch) {
        QStringList paths;
        for (const LocalEntry& file : batch.files)
            paths.append(joinPath(batch.remoteFolder, lastComponent(file.relativePath)));
        return paths;
    }

    /// Sends what may travel in one command; returns what has to be sent one by one.
    std::vector<LocalEntry> pushTogether(Batch batch) {
        if (batch.files.size() < 2)
            return batch.files;
        std::vector<LocalEntry> alone = takeSingleFiles(batch);
        if (batch.files.empty())
            return alone;
        QStringList words{QStringLiteral("push")};
        for (const LocalEntry& file : batch.files)
            words.append(localPath(file));
        words.append(batch.remoteFolder + QLatin1Char('/'));
        const ProcessResult result = shell_.tool().run(
            shell_.tool().request(shell_.device(), words, adbStallLimit, shell_.stopToken()));
        if (isADBConnectionFailure(result))
            failPush(lastComponent(localFolder_), adbFailure(result));
        if (!result.succeeded()) {
            alone.insert(alone.begin(), batch.files.begin(), batch.files.end());
            return alone;
        }
        const auto arrived = shell_.stat(remotePaths(batch));
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
        return alone;
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
    bool isNew_ = false; ///< nothing was at the target's place before
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

void pushFile(const ADBShell& shell, const LocalSource& source, const QString& remoteFolder,
              const FileProgressCallback& progress) {
    pushOne(shell, source, remoteFolder, TargetFolder::isChecked, progress);
}

TransferOutcome pushFolder(const ADBShell& shell, const LocalSource& source,
                           const QString& remoteFolder, const TransferProgressCallback& progress) {
    requireNameForADB(source.name);
    shell.requireFolder(remoteFolder);
    return FolderPush(shell, source.path, joinPath(remoteFolder, source.name), progress).run();
}

} // namespace tessary
