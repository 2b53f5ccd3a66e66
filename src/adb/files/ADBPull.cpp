#include "adb/files/ADBTransfer.h"

#include "base/local/PartFile.h"
#include "base/log/DiagnosticsLogger.h"
#include "base/values/TessaryError.h"
#include "phone/DevicePath.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QTemporaryDir>

#include <algorithm>

namespace tessary {

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

/// Ends a transfer that has come to a standstill.
class StallGuard {
public:
    /// Takes any figure that grows as long as something arrives.
    void saw(qint64 arrived) {
        if (arrived != last_) {
            last_ = arrived;
            since_ = Clock::now();
        } else if (Clock::now() - since_ > adbStallLimit) {
            throw TessaryError::fileIOError(QStringLiteral(
                "The phone sends nothing any more. Unplug it and plug it in again."));
        }
    }

private:
    qint64 last_ = -1;
    Clock::time_point since_ = Clock::now();
};

ProcessResult pull(const ADBShell& shell, const QString& remote, const QString& local,
                   std::function<void()> whileRunning) {
    // -a keeps the date that the phone has.
    ProcessRequest request = shell.tool().request(
        shell.device(), {QStringLiteral("pull"), QStringLiteral("-a"), remote, local}, std::nullopt,
        shell.stopToken());
    request.whileRunning = std::move(whileRunning);
    return shell.tool().run(request);
}

[[noreturn]] void failPull(const char* notice, const char* words, const QString& name,
                           const QString& reason) {
    DiagnosticsLogger::shared().adb.error(notice, {reason});
    throw TessaryError::fileIOError(QString::fromLatin1(words) + name + QStringLiteral(": ") +
                                    reason);
}

} // namespace

void pullFile(const ADBShell& shell, const QString& remotePath, qint64 size,
              const QString& localFile, const FileProgressCallback& progress) {
    PartFile part(localFile);
    const QString arrival = part.temporaryPath();
    // A new file's permissions here: what the phone says of its own is no matter.
    const auto permissions = QFileInfo(arrival).permissions();
    StallGuard guard;
    const ProcessResult result = pull(shell, remotePath, arrival, [&] {
        const qint64 arrived = QFileInfo(arrival).size();
        guard.saw(arrived);
        if (progress)
            progress(std::min(arrived, size), size);
    });
    const QFileInfo arrived(arrival);
    const QString reason = adbFailure(result);
    if (!reason.isEmpty() || !arrived.isFile())
        failPull("ADB pull failed: %s", "ADB pull failed for ", lastComponent(remotePath),
                 reason.isEmpty() ? QStringLiteral("nothing arrived.") : reason);
    QFile::setPermissions(arrival, permissions);
    const qint64 count = arrived.size();
    part.commit(std::nullopt);
    if (progress)
        progress(count, count);
}

TransferOutcome pullFolder(const ADBShell& shell, const QString& remoteFolder,
                           const ADBTreeTotals& totals, const QString& localFolder,
                           const TransferProgressCallback& progress) {
    constexpr auto interval = 250ms;
    constexpr int restBetweenLooks = 5; // times as long as a look took
    if (!QDir().mkpath(localFolder))
        throw TessaryError::fileIOError(
            QStringLiteral("Cannot create the folder %1 on this computer.").arg(localFolder));
    const auto permissions =
        QFileInfo(PartFile(joinPath(localFolder, QStringLiteral("any"))).temporaryPath())
            .permissions();
    const QTemporaryDir own(joinPath(localFolder, PartFile::namePrefix + QStringLiteral("XXXXXX")));
    if (!own.isValid())
        throw TessaryError::fileIOError(
            QStringLiteral("Cannot write into %1: %2").arg(localFolder, own.errorString()));
    const QString arrival = own.filePath(QStringLiteral("folder"));
    TransferOutcome outcome;
    TransferProgress& state = outcome.progress;
    state.totalFiles = totals.files;
    state.totalBytes = totals.bytes;
    const auto report = [&] {
        if (progress)
            progress(state);
    };
    report();
    StallGuard guard;
    auto nextLook = Clock::now() + interval;
    const ProcessResult result = pull(shell, remoteFolder, arrival, [&] {
        const auto now = Clock::now();
        if (now < nextLook)
            return;
        const LocalDirectoryStats arrived = calculateLocalDirectoryStats(arrival);
        nextLook = std::max(now + interval, Clock::now() + restBetweenLooks * (Clock::now() - now));
        guard.saw(arrived.totalFiles + arrived.totalBytes); // a file may be empty
        // The last file may be on its way still.
        state.completedFiles = std::clamp<qint64>(arrived.totalFiles - 1, 0, totals.files);
        state.completedBytes = std::min(arrived.totalBytes, totals.bytes);
        report();
    });
    const QString reason = adbFailure(result);
    if (!reason.isEmpty() || !QFileInfo(arrival).isDir())
        failPull("ADB pull directory failed: %s", "ADB directory pull failed for ",
                 lastComponent(remoteFolder),
                 reason.isEmpty() ? QStringLiteral("nothing arrived.") : reason);

    const LocalTree tree = collectLocalFiles(arrival);
    outcome.skipped = tree.skipped;
    state.totalFiles = tree.fileCount;
    state.totalBytes = tree.byteCount;
    state.completedFiles = 0;
    state.completedBytes = 0;
    QSet<QString> unusable; // folders that cannot be made here: something is in the way
    for (const LocalEntry& entry : tree.entries) {
        const QString source = joinPath(arrival, entry.relativePath);
        const QString target = joinPath(localFolder, entry.relativePath);
        const auto skip = [&](const QString& why) {
            outcome.skipped.push_back({joinPath(remoteFolder, entry.relativePath), why});
        };
        if (unusable.contains(parentPath(target))) {
            if (entry.isDirectory)
                unusable.insert(target);
            continue;
        }
        if (entry.isDirectory) {
            if (!QDir().mkpath(target)) {
                unusable.insert(target);
                skip(QStringLiteral("the folder cannot be created on this computer"));
            }
            continue;
        }
        if (QFileInfo(target).isDir()) {
            skip(QStringLiteral("a folder of this name is on this computer"));
            continue;
        }
        QFile::setPermissions(source, permissions);
        try {
            renameOver(source, target);
            ++state.completedFiles;
            state.completedBytes += entry.size;
        } catch (const TessaryError& error) {
            skip(error.message());
        }
    }
    report();
    return outcome;
}

} // namespace tessary
