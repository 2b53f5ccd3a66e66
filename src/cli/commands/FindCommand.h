#pragma once

#include "cli/commands/CliSession.h"

namespace tessary {

/// Prints what fits a pattern below a folder of a phone, as it is found; as JSON in one document.
void findFiles(CliSession& session);

} // namespace tessary
