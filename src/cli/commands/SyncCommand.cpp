#include "cli/commands/Commands.h"

#include "app/texts/ErrorText.h"
#include "app/texts/SyncTexts.h"
#include "base/local/Trash.h"
#include "base/text/ByteFormat.h"
#include "base/text/Printable.h"
#include "base/threads/CancellationError.h"
#include "cli/terminal/CliFailure.h"
#include "cli/terminal/ProgressPrinter.h"
#include "platform/desktop/HostInfo.h"
#include "sync/manager/SyncHost.h"
#include "sync/plan/SyncError.h"
#include "sync/plan/SyncReportJson.h"
#include "sync/run/SyncRun.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonObject>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <optional>

namespace tessary {

namespace {

using View = QLatin1StringView;
using Answer = CliRequest::Answer;
using Outcome = SyncReport::Outcome;

/// How many deletions are shown before a question.
constexpr std::size_t shownCandidates = 20;

/// "upload", "replace", …, in the order of SyncDeed; and on which side that is.
struct DeedWords {
    const char* action;
    const char* place;
};
constexpr std::array deedWords{
    DeedWords{"upload", ""},
    DeedWords{"replace", "on the device"},
    DeedWords{"download", ""},
    DeedWords{"replace", "here"},
    DeedWords{"move", "to the device"},
    DeedWords{"move", "here"},
    DeedWords{"conflict", "both are kept"},
    DeedWords{"delete", "on the device"},
    DeedWords{"delete", "here"},
    DeedWords{"rename", "on the device"},
    DeedWords{"rename", "here"},
};
static_assert(deedWords.size() == static_cast<std::size_t>(SyncDeed::renameHere) + 1);

const DeedWords& wordsOf(SyncDeed deed) {
    return deedWords[static_cast<std::size_t>(deed)];
}

/// Two deeds that reports tell together.
struct DeedKind {
    const char* name;
    SyncDeed first;
    SyncDeed second;
};
constexpr std::array deedKinds{
    DeedKind{"uploaded", SyncDeed::upload, SyncDeed::replaceOnDevice},
    DeedKind{"downloaded", SyncDeed::download, SyncDeed::replaceHere},
    DeedKind{"moved", SyncDeed::moveToDevice, SyncDeed::moveHere},
    DeedKind{"deleted", SyncDeed::deleteOnDevice, SyncDeed::deleteHere},
    DeedKind{"renamed", SyncDeed::renameOnDevice, SyncDeed::renameHere},
};

QJsonObject toJson(const SyncPreview& preview) {
    QJsonArray items;
    for (const SyncPreviewItem& item : preview.items) {
        QJsonObject object{{View("action"), item.deed
                                                ? QString::fromLatin1(wordsOf(*item.deed).action)
                                                : QStringLiteral("skip")},
                           {View("path"), item.path},
                           {View("size"), item.size}};
        if (item.deed)
            object.insert(View("deed"), QString::fromLatin1(deedName(*item.deed)));
        if (!item.other.isEmpty())
            object.insert(View("other"), item.other);
        if (item.reason)
            object.insert(View("reason"), reasonText(*item.reason));
        items.append(object);
    }
    QJsonObject counts;
    for (const auto& [deed, count] : preview.counts())
        counts.insert(QString::fromLatin1(deedName(deed)), count);
    return {{View("items"), items},
            {View("counts"), counts},
            {View("inSync"), preview.inSync},
            {View("totalBytes"), preview.totalBytes},
            {View("warning"), guardText(preview.guard)}};
}

/// The report, and its paths by what was done beside it.
QJsonObject toJson(const SyncReport& report) {
    QJsonObject object = encodeReport(report);
    QJsonArray skipped;
    for (const SyncSkippedItem& item : report.skipped)
        skipped.append(
            QJsonObject{{View("path"), item.path}, {View("reason"), reasonText(item.reason)}});
    QJsonArray conflicts;
    for (const SyncReportItem& item : report.items)
        if (item.deed == SyncDeed::keepBoth)
            conflicts.append(item.other);
    QJsonArray errors;
    if (report.failure)
        errors.append(errorText(*report.failure).text());
    object.insert(View("skipped"), skipped);
    for (const DeedKind& kind : deedKinds)
        object.insert(View(kind.name),
                      QJsonArray::fromStringList(report.paths({kind.first, kind.second})));
    object.insert(View("conflicts"), conflicts);
    object.insert(View("errors"), errors);
    return object;
}

QString previewLine(const SyncPreviewItem& item) {
    constexpr int actionWidth = 9;
    const char* action = item.deed ? wordsOf(*item.deed).action : "skip";
    QString line = QString::fromLatin1(action).leftJustified(actionWidth) + printable(item.path);
    if (!item.deed)
        return line +
               QStringLiteral("  (%1)").arg(item.reason ? reasonText(*item.reason) : QString());
    const bool isTransfer = *item.deed <= SyncDeed::moveHere;
    if (isTransfer)
        line += QStringLiteral("  %1").arg(formatBytes(item.size));
    const char* place = wordsOf(*item.deed).place;
    return *place == '\0' ? line : line + QStringLiteral("  (%1)").arg(QLatin1StringView(place));
}

/// "2 uploaded, 1 deleted, 1 skipped" or "Up to date".
QString summary(const SyncReport& report) {
    QStringList parts;
    const auto add = [&](const char* name, std::initializer_list<SyncDeed> deeds) {
        if (const auto count = report.paths(deeds).size(); count > 0)
            parts.append(QStringLiteral("%1 %2").arg(count).arg(View(name)));
    };
    for (const DeedKind& kind : deedKinds)
        add(kind.name, {kind.first, kind.second});
    add("kept twice", {SyncDeed::keepBoth});
    if (parts.isEmpty())
        parts.append(QStringLiteral("Up to date"));
    if (!report.skipped.empty())
        parts.append(QStringLiteral("%1 skipped").arg(report.skipped.size()));
    return parts.join(QStringLiteral(", "));
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

/// The first sign of the next line of standard input in lower case; NUL for none.
/// CancellationError on a stop request.
char readAnswer(const std::stop_token& stop) {
    constexpr int pollMilliseconds = 200;
    constexpr qsizetype longest = 1024;
    QByteArray line;
    while (!line.endsWith('\n') && line.size() < longest) {
        throwIfStopped(stop);
        pollfd input{STDIN_FILENO, POLLIN, 0};
        if (poll(&input, 1, pollMilliseconds) <= 0)
            continue;
        char byte = 0;
        if (read(STDIN_FILENO, &byte, 1) != 1)
            break;
        line.append(byte);
    }
    const QByteArray word = line.trimmed().toLower();
    return word.isEmpty() ? '\0' : word.front();
}

/// A failure when settings cannot be stored.
void requireStored(SettingsStore& defaults) {
    constexpr std::chrono::seconds patience(15);
    if (defaults.store(patience))
        return;
    const SettingsTrouble trouble = defaults.trouble().value_or(SettingsTrouble());
    throw CliFailure(
        QStringLiteral("The settings in %1 cannot be stored (%2). A sync that is forgotten would "
                       "bring back what is deleted: nothing was done.")
            .arg(printable(trouble.file), printable(trouble.reason)));
}

/// Why a question that nobody is there to answer ends the run.
CliFailure unanswered(const SyncQuestion& question) {
    using Kind = SyncQuestion::Kind;
    if (question.kind == Kind::missingLocalFolder)
        return CliFailure(QStringLiteral("The folder %1 is gone, although it was synced before. "
                                         "Make the folder, or say --yes-all.")
                              .arg(printable(question.path)));
    const QString guard = guardText(question.guard);
    if (question.kind == Kind::emptySide)
        return CliFailure(guard + QStringLiteral(" Nothing was done. Say --keep or --yes-all to "
                                                 "copy the files there again."));
    return CliFailure(
        (guard.isEmpty()
             ? QStringLiteral("%1 files would be deleted.").arg(question.candidates.size())
             : guard) +
        QStringLiteral(" Nothing was done. Say --keep to delete nothing, --yes or --yes-all to "
                       "delete; --dry-run shows what."));
}

/// What the options say to a question.
std::optional<SyncAnswer> saidBeforehand(const CliSession& session, const SyncQuestion& question) {
    const bool isGuarded = question.guard.kind != SyncGuard::Kind::nothing;
    const Answer answer = session.request().answer;
    if (answer == Answer::yesAll || (answer == Answer::yes && !isGuarded))
        return SyncAnswer::deleteAll(question);
    if (answer == Answer::keep && question.kind != SyncQuestion::Kind::missingLocalFolder)
        return SyncAnswer::keepAll();
    return std::nullopt;
}

/// The user's word on a question. Throws where nobody is there to say it.
SyncAnswer answerTo(const CliSession& session, const SyncQuestion& question) {
    using Kind = SyncQuestion::Kind;
    const bool isGuarded = question.guard.kind != SyncGuard::Kind::nothing;
    const bool mayAsk = session.request().answer == Answer::ask && isatty(STDIN_FILENO) != 0 &&
                        isatty(fileno(session.setup().error)) != 0;
    if (!mayAsk)
        throw unanswered(question);
    const auto print = [&session](const QString& text) {
        std::fprintf(session.setup().error, "%s", qUtf8Printable(text));
    };
    for (std::size_t n = 0; n < std::min(shownCandidates, question.candidates.size()); ++n) {
        const DeletionCandidate& file = question.candidates[n];
        print(QStringLiteral("  %1: %2%3\n")
                  .arg(file.isHere ? QStringLiteral("here") : QStringLiteral("on the device"),
                       printable(file.relativePath),
                       file.isEditedSinceLastSync ? QStringLiteral(" (edited since the last sync)")
                                                  : QString()));
    }
    if (question.candidates.size() > shownCandidates)
        print(QStringLiteral("  and %1 more\n").arg(question.candidates.size() - shownCandidates));
    if (isGuarded)
        print(guardText(question.guard) + QLatin1Char('\n'));
    if (question.kind == Kind::deletions)
        print(QStringLiteral("Delete these %1 files, or keep them and copy them back? "
                             "[d]elete, [k]eep, [S]top: ")
                  .arg(question.candidates.size()));
    else if (question.kind == Kind::emptySide)
        print(QStringLiteral("Copy the files there again? [y]es, [S]top: "));
    else
        print(QStringLiteral("The folder %1 is gone. Make it again? [y]es, [S]top: ")
                  .arg(printable(question.path)));
    std::fflush(session.setup().error);
    const char word = readAnswer(session.stop());
    if (question.kind == Kind::deletions)
        return word == 'd'   ? SyncAnswer::deleteAll(question)
               : word == 'k' ? SyncAnswer::keepAll()
                             : SyncAnswer::stop();
    return word == 'y' ? SyncAnswer::keepAll() : SyncAnswer::stop();
}

void showPreview(CliSession& session, const SyncPreview& preview) {
    if (session.request().json) {
        session.print(toJson(preview));
        return;
    }
    for (const SyncPreviewItem& item : preview.items)
        session.printLine(previewLine(item));
    if (const QString warning = guardText(preview.guard); !warning.isEmpty())
        session.printLine(warning);
    session.printLine(QStringLiteral("%1 in sync, %2 to copy")
                          .arg(preview.inSync)
                          .arg(formatBytes(preview.totalBytes)));
}

} // namespace

void syncFolders(CliSession& session) {
    PhoneFileSystem& phone = session.files(); // checks that device and --app go together
    const DeviceInfo device = session.device();
    SyncPair pair;
    pair.deviceUDID = device.udid;
    pair.deviceName = device.deviceName.value_or(device.udid);
    pair.appBundleID = device.platform == DevicePlatform::iOS && !session.request().app.isEmpty()
                           ? session.request().app
                           : QString(SyncPair::deviceStorage);
    pair.remoteFolderPath = phone.canonicalPath(session.request().paths.front());
    pair.localFolderPath = QDir::cleanPath(session.request().localPath);
    pair.syncMode = session.request().mode;
    pair.deleteSyncEnabled = session.request().deletes;
    pair.moveFilesEnabled = session.request().moves;
    pair.patterns += session.request().excludes;

    // Whoever forgets who he is takes deleted files for new ones the next time.
    const QString hostID = session.request().isDryRun ? foreseenHostID(session.setup().defaults)
                                                      : syncHostID(session.setup().defaults);
    if (!session.request().isDryRun)
        requireStored(session.setup().defaults);

    LocalFileSystem folder(pair.localFolderPath);
    SyncReport report;
    {
        ProgressPrinter printer(session.setup().error);
        SyncRunEvents events;
        events.progress = [&session, &printer](const SyncProgress& progress) {
            if (progress.stage == SyncStage::waiting)
                session.warn(QStringLiteral(
                    "Another sync is running: waiting until it has ended, or Ctrl+C is pressed"));
            if (progress.totalFiles > 0)
                printer.show(transferProgress(progress));
        };
        events.answer = [&session](const SyncQuestion& question) {
            return saidBeforehand(session, question);
        };
        events.ask = [&session](const SyncQuestion& question) {
            return answerTo(session, question);
        };
        SyncRun run({pair, hostID, computerName(), syncComputer(folder, moveToTrash), phone},
                    events, session.stop());
        if (session.request().isDryRun) {
            showPreview(session, run.preview());
            return;
        }
        try {
            report = run.run();
        } catch (const CliFailure& failure) {
            if (session.request().json)
                session.print(
                    QJsonObject{{View("errors"), QJsonArray{QString::fromUtf8(failure.what())}}});
            throw;
        }
    }
    if (session.request().json)
        session.print(toJson(report));
    else if (report.outcome == Outcome::done || report.outcome == Outcome::incomplete)
        session.printLine(summary(report));
    // A file that no run can sync does not make every run a failure.
    for (const SyncSkippedItem& item : report.skipped) {
        const QString text =
            QStringLiteral("Not synced: %1: %2").arg(item.path, reasonText(item.reason));
        if (isForGood(item.reason))
            session.warn(text);
        else
            session.fail(text);
    }
    if (report.failure)
        throw *report.failure;
    if (report.outcome == Outcome::cancelled)
        throw CancellationError();
}

} // namespace tessary
