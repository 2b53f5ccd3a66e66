#pragma once

#include "cli/commands/CliSession.h"

namespace tessary {

/// Copies photos and videos that were not fetched from this phone yet. What was fetched before is
/// not asked for again, whatever it is called here now.
void importPhotos(CliSession& session);

} // namespace tessary
