#include "cli/commands/Commands.h"

#include "app/texts/ErrorText.h"
#include "base/threads/CancellationError.h"
#include "cli/commands/CopyRun.h"
#include "cli/commands/ImportSummary.h"
#include "transfer/local/LocalFileSystem.h"
#include "transfer/local/LocalFolder.h"

namespace tessary {

namespace {

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
        session.fail(
            QStringLiteral("Not deleted: %1: %2").arg(left.item.item.path, reasonText(left.error)));
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
        findPhotos(session.files(), session.device(), session.ledgers(), {}, session.stop());
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
        session.fail(QStringLiteral("Not listed: %1: %2").arg(entry.path, reasonText(entry.error)));
    if (summary.outcome)
        sayLeftOut(session, *summary.outcome);
    if (summary.removal)
        sayNotDeleted(session, *summary.removal);
}

} // namespace tessary
