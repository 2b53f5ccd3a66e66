#pragma once

#include "cli/commands/CliSession.h"
#include "transfer/copy/TreeCopy.h"

namespace tessary {

/// Copies, with progress. Throws CancellationError for a copy that was interrupted.
[[nodiscard]] CopyOutcome runCopy(CliSession& session, TreeCopyRequest request);
/// Names what was not copied, which makes the run one that failed; throws what ended the copy.
void sayLeftOut(CliSession& session, const CopyOutcome& outcome);

} // namespace tessary
