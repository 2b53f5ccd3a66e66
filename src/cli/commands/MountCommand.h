#pragma once

#include "cli/commands/CliSession.h"

namespace tessary {

/// Shows a phone (an app's documents, the photos) in an empty folder, for reading only, until it is
/// unmounted from outside or the session is asked to stop. A phone that goes ends it, too.
void mountFiles(CliSession& session);

} // namespace tessary
