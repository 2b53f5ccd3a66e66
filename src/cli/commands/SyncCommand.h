#pragma once

#include "cli/commands/CliSession.h"

namespace tessary {

/// Runs a sync of a folder here and a folder on a phone, or shows what it would do.
void syncFolders(CliSession& session);

} // namespace tessary
