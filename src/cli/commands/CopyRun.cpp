#include "cli/commands/CopyRun.h"

#include "base/threads/CancellationError.h"
#include "cli/terminal/ProgressPrinter.h"

#include <utility>

namespace tessary {

CopyOutcome runCopy(CliSession& session, TreeCopyRequest request) {
    ProgressPrinter printer(session.setup().error);
    CopyOutcome outcome =
        TreeCopy(std::move(request))
            .run([&](const TransferProgress& progress) { printer.show(progress); }, session.stop());
    if (outcome.isCancelled)
        throw CancellationError();
    return outcome;
}

void sayLeftOut(CliSession& session, const CopyOutcome& outcome) {
    for (const LeftOut& left : outcome.leftOut)
        session.fail("Not copied", left.item.item.path, left.error);
    if (outcome.failure)
        throw *outcome.failure;
}

} // namespace tessary
