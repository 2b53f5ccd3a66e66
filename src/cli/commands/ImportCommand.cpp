#include "cli/commands/Commands.h"

#include "base/text/ByteFormat.h"
#include "base/text/PathNames.h"
#include "base/threads/CancellationError.h"
#include "cli/commands/CopyRun.h"
#include "cli/terminal/RecordJson.h"
#include "transfer/import/Import.h"
#include "transfer/import/ImportRemoval.h"
#include "transfer/local/LocalFileSystem.h"
#include "transfer/local/LocalFolder.h"

#include <QJsonArray>
#include <QJsonObject>

namespace tessary {

namespace {

using View = QLatin1StringView;

/// What an import has found and done.
struct ImportSummary {
    const FoundPhotos& found;
    const ImportPlan plan;
    std::optional<CopyOutcome> outcome; ///< no value when nothing was to be done
    std::optional<ImportRemoval> removal = {};
};

qint64 fetchedBefore(const FoundPhotos& found, const ImportPlan& plan) {
    return static_cast<qint64>(found.photos.size()) - plan.photos;
}

QString targetOf(const CopyItem& item) {
    return item.folder.isEmpty() ? item.name : joinPath(item.folder, item.name);
}

/// Numbers, and each file that is, or would be, copied.
QJsonObject toJson(const ImportSummary& summary) {
    QJsonArray files;
    for (const CopyItem& item : summary.plan.items) {
        QJsonObject file = toJson(item.item);
        file.insert(View("copy"), targetOf(item));
        files.append(file);
    }
    QJsonObject object{{View("photos"), static_cast<qint64>(summary.found.photos.size())},
                       {View("fetchedBefore"), fetchedBefore(summary.found, summary.plan)},
                       {View("newPhotos"), summary.plan.photos},
                       {View("newBytes"), summary.plan.bytes},
                       {View("files"), files}};
    if (summary.outcome)
        object.insert(View("outcome"), toJson(*summary.outcome));
    if (summary.removal)
        object.insert(View("deleted"), QJsonObject{{View("photos"), summary.removal->photos},
                                                   {View("files"), summary.removal->files}});
    return object;
}

/// The same for people: of what was not done each file, and the numbers.
QStringList linesOf(const ImportSummary& summary) {
    const ImportPlan& plan = summary.plan;
    QStringList lines;
    if (!summary.outcome)
        for (const CopyItem& item : plan.items)
            lines << QStringLiteral("%1  %2  %3")
                         .arg(formatBytes(item.item.size).rightJustified(10), item.item.path,
                              targetOf(item));
    const QString numbers =
        QStringLiteral("%1 of %2 photos and videos are new (%3 files, %4); %5 were fetched before.")
            .arg(plan.photos)
            .arg(summary.found.photos.size())
            .arg(plan.items.size())
            .arg(formatBytes(plan.bytes))
            .arg(fetchedBefore(summary.found, plan));
    lines << numbers;
    if (summary.outcome && !plan.items.empty())
        lines << QStringLiteral("%1 files are copied and compared.").arg(summary.outcome->files);
    if (summary.removal)
        lines << QStringLiteral("%1 photos and videos are deleted from the phone (%2 files).")
                     .arg(summary.removal->photos)
                     .arg(summary.removal->files);
    return lines;
}

/// What was fetched now or earlier, and lies here whole.
ImportRemoval removeFetched(CliSession& session, const FoundPhotos& found) {
    std::vector<Photo> fetched;
    for (const Photo& photo : found.photos)
        if (isFetched(photo, *found.ledger))
            fetched.push_back(photo);
    return removeImported(session.files(), fetched, *found.ledger, {}, session.stop());
}

void sayNotDeleted(CliSession& session, const ImportRemoval& removal) {
    for (const LeftOut& left : removal.leftOut)
        session.fail("Not deleted", left.item.item.path, left.error);
    if (removal.failure)
        throw *removal.failure;
    if (removal.isCancelled)
        throw CancellationError();
}

} // namespace

void importPhotos(CliSession& session) {
    session.useMedia();
    const CliRequest& request = session.request();
    FoundPhotos found =
        findPhotos(session.files(), session.device(), session.setup().ledgers, {}, session.stop());
    if (!request.isDryRun)
        makeFolders(request.localPath);
    const auto to = std::make_shared<LocalFileSystem>(request.localPath);
    ImportPlan plan = planImport(found.newOnes(), *found.ledger, *to, request.localPath,
                                 {.byDate = request.byDate}, session.stop());
    ImportSummary summary{found, plan, {}};
    if (!request.isDryRun) {
        found.ledger->add(plan.alreadyHere);
        summary.outcome = plan.items.empty()
                              ? CopyOutcome()
                              : runCopy(session, importRequest(session.sharedFiles(), to,
                                                               std::move(plan), found.ledger));
    }
    const bool isComplete =
        summary.outcome && !summary.outcome->failure && !session.stop().stop_requested();
    if (request.deletesFromPhone && isComplete)
        summary.removal = removeFetched(session, found);
    if (request.json)
        session.print(toJson(summary));
    else
        for (const QString& line : linesOf(summary))
            session.printLine(line);
    for (const UnreadableEntry& entry : found.unreadable)
        session.fail("Not listed", entry.path, entry.error);
    if (summary.outcome)
        sayLeftOut(session, *summary.outcome);
    if (summary.removal)
        sayNotDeleted(session, *summary.removal);
}

} // namespace tessary
