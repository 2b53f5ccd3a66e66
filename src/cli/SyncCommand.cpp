#include "base/text/ByteFormat.h"
#include "base/text/Printable.h"
#include "base/threads/CancellationError.h"
#include "base/values/TessaryError.h"
#include "cli/CliRunner.h"
#include "cli/ProgressPrinter.h"
#include "cli/RecordJson.h"
#include "platform/desktop/HostInfo.h"
#include "sync/manager/SyncConnection.h"
#include "sync/old/plan/SyncHost.h"
#include "sync/old/run/DiskSyncFolder.h"
#include "sync/old/run/SyncRun.h"
#include "transfer/ErrorAdvice.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonObject>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <chrono>

namespace tessary {

namespace {

using View = QLatin1StringView;

constexpr std::array previewNames{View("upload"), View("download"), View("move"), View("conflict"),
                                  View("delete"), View("leave"),    View("skip")};

/// How many deletions are shown before a question.
constexpr std::size_t shownCandidates = 20;

QString previewName(const SyncPreviewItem& item) {
    return previewNames[static_cast<std::size_t>(item.kind)];
}

QJsonObject toJson(const SyncPreview& preview) {
    QJsonArray items;
    for (const SyncPreviewItem& item : preview.items) {
        QJsonObject object{{View("action"), previewName(item)},
                           {View("path"), item.relativePath},
                           {View("toDevice"), item.toDevice},
                           {View("size"), item.size}};
        if (!item.reason.isEmpty())
            object.insert(View("reason"), item.reason);
        items.append(object);
    }
    return {{View("items"), items},
            {View("inSync"), preview.inSync},
            {View("totalBytes"), preview.totalBytes},
            {View("warning"), preview.warning}};
}

QJsonObject toJson(const SyncReport& report, const QString& error) {
    QJsonArray skipped;
    for (const SkippedItem& item : report.skipped)
        skipped.append(QJsonObject{{View("path"), item.path}, {View("reason"), item.reason}});
    const auto list = [](const QStringList& paths) { return QJsonArray::fromStringList(paths); };
    return {{View("uploaded"), list(report.uploaded)},
            {View("downloaded"), list(report.downloaded)},
            {View("deleted"), list(report.deleted)},
            {View("moved"), list(report.moved)},
            {View("conflicts"), list(report.conflicts)},
            {View("skipped"), skipped},
            {View("errors"), list(error.isEmpty() ? QStringList() : QStringList(error))}};
}

QString previewLine(const SyncPreviewItem& item) {
    using Kind = SyncPreviewItem::Kind;
    QString line = previewName(item).leftJustified(9) + printable(item.relativePath);
    if (item.kind == Kind::upload || item.kind == Kind::download || item.kind == Kind::move)
        line += QStringLiteral("  %1").arg(formatBytes(item.size));
    if (item.kind == Kind::remove || item.kind == Kind::move)
        line += item.toDevice == (item.kind == Kind::remove) ? QStringLiteral("  (on the device)")
                                                             : QStringLiteral("  (here)");
    return item.reason.isEmpty() ? line : line + QStringLiteral("  (%1)").arg(item.reason);
}

/// A failure when settings cannot be stored.
void requireStored(UserDefaults& defaults) {
    constexpr std::chrono::seconds patience(15);
    if (defaults.store(patience))
        return;
    const SettingsTrouble trouble = defaults.trouble().value_or(SettingsTrouble());
    throw TessaryError::fileIOError(
        QStringLiteral("The settings in %1 cannot be stored (%2). A sync that is forgotten would "
                       "bring back what is deleted: nothing was done.")
            .arg(trouble.file, trouble.reason));
}

TransferProgress transferProgress(const SyncProgress& progress) {
    TransferProgress result;
    result.totalFiles = progress.totalFiles;
    result.completedFiles = progress.completedFiles;
    result.totalBytes = progress.totalBytes;
    result.completedBytes = std::min(progress.completedBytes, progress.totalBytes);
    result.currentFileBytes =
        std::min(progress.currentFileBytes, result.totalBytes - result.completedBytes);
    return result;
}

/// Whether the next line of standard input begins with "y". CancellationError on a stop request.
bool readYes(const std::stop_token& stop) {
    constexpr int pollMilliseconds = 200;
    QByteArray line;
    while (!line.endsWith('\n')) {
        throwIfStopped(stop);
        pollfd input{STDIN_FILENO, POLLIN, 0};
        if (poll(&input, 1, pollMilliseconds) <= 0)
            continue;
        char byte = 0;
        if (read(STDIN_FILENO, &byte, 1) != 1)
            break;
        line.append(byte);
    }
    return line.trimmed().toLower().startsWith('y');
}

} // namespace

/// The user's word on a question, or what the options say. Throws where neither tells.
bool CliRunner::mayGoOn(const SyncQuestion& question) {
    using Answer = CliRequest::Answer;
    const bool isMissing = question.kind == SyncQuestion::Kind::missingLocalFolder;
    const Answer answer = request_.answer;
    if (answer == Answer::yesAll)
        return true;
    if (answer == Answer::keep && !isMissing)
        return false;
    if (answer == Answer::yes && question.warning.isEmpty())
        return true;
    const bool mayAsk =
        answer == Answer::ask && isatty(STDIN_FILENO) != 0 && isatty(fileno(error_)) != 0;
    if (!mayAsk) {
        const QString text =
            !question.warning.isEmpty()
                ? question.warning
                : QStringLiteral("%1 files would be deleted.").arg(question.candidates.size());
        throw TessaryError::fileIOError(
            text + (isMissing ? QStringLiteral(" Make the folder, or say --yes-all.")
                              : QStringLiteral(" Nothing was done. Say --keep to delete nothing, "
                                               "--yes or --yes-all to delete; --dry-run shows "
                                               "what.")));
    }
    for (std::size_t n = 0; n < std::min(shownCandidates, question.candidates.size()); ++n) {
        const DeletionCandidate& file = question.candidates[n];
        std::fprintf(error_, "  %s: %s%s\n", qUtf8Printable(rawValue(file.targetLocation)),
                     qUtf8Printable(printable(file.relativePath)),
                     file.isEditedSinceLastSync ? " (edited since the last sync)" : "");
    }
    if (question.candidates.size() > shownCandidates)
        std::fprintf(error_, "  and %zu more\n", question.candidates.size() - shownCandidates);
    if (!question.warning.isEmpty())
        std::fprintf(error_, "%s\n", qUtf8Printable(printable(question.warning)));
    if (isMissing)
        std::fprintf(error_, "Make it again? [y/N] ");
    else
        std::fprintf(error_, "Delete these %zu files? [y/N] ", question.candidates.size());
    std::fflush(error_);
    return readYes(stop_);
}

void CliRunner::sync() {
    const PhoneFileSystem& access = files(); // checks that device and --app go together
    const DeviceInfo device = chosenDevice();
    SyncPair pair;
    pair.deviceUDID = device.udid;
    pair.deviceName = device.deviceName.value_or(device.udid);
    pair.appBundleID =
        device.platform == DevicePlatform::iOS ? request_.app : QString(SyncPair::deviceStorage);
    pair.remoteFolderPath = access.canonicalPath(request_.paths.front());
    pair.localFolderPath = QDir::cleanPath(request_.localPath);
    pair.syncMode = request_.mode;
    pair.deleteSyncEnabled = request_.deletes;
    pair.moveFilesEnabled = request_.moves;

    // Whoever forgets who he is takes deleted files for new ones the next time.
    const QString hostID = syncHostID(defaults_);
    requireStored(defaults_);

    const auto backend = deviceConnector(services_)(pair, device, stop_);
    DiskSyncFolder folder(pair.localFolderPath);
    SyncReport report;
    QString error;
    {
        ProgressPrinter printer(error_);
        SyncRunEvents events;
        events.progress = [&printer](const SyncProgress& progress) {
            if (progress.totalFiles > 0)
                printer.show(transferProgress(progress));
        };
        events.ask = [this](const SyncQuestion& question) { return mayGoOn(question); };
        SyncRun run({pair, hostID, computerName(), folder, *backend,
                     [] { return QDateTime::currentDateTime(); }},
                    events, stop_);
        if (request_.isDryRun) {
            const SyncPreview preview = run.preview();
            if (request_.json) {
                print(toJson(preview));
                return;
            }
            for (const SyncPreviewItem& item : preview.items)
                printLine(previewLine(item));
            if (!preview.warning.isEmpty())
                printLine(preview.warning);
            printLine(QStringLiteral("%1 in sync, %2 to copy")
                          .arg(preview.inSync)
                          .arg(formatBytes(preview.totalBytes)));
            return;
        }
        if (request_.json) {
            try {
                report = run.run();
            } catch (const CancellationError&) {
                throw;
            } catch (const std::exception& failure) {
                error = adviceFor(failure).text();
            }
        } else {
            report = run.run();
        }
    }
    if (request_.json)
        print(toJson(report, error));
    else
        printLine(report.summary());
    if (!error.isEmpty())
        fail(error);
    // A file that no run can sync does not make every run a failure.
    for (const SkippedItem& item : report.skipped)
        std::fprintf(error_, "tessary-cli: Not synced: %s: %s\n",
                     qUtf8Printable(printable(item.path)), qUtf8Printable(printable(item.reason)));
}

} // namespace tessary
