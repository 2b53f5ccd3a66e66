#pragma once

#include "simulator/adbd/ADBDFiles.h"

#include <string>

namespace tessary {

/// One line of `ls -la` as current phones print it, with its line break, in local time. `sizeLie`
/// is added to the size.
[[nodiscard]] std::string adbdListingLine(const ADBDEntry& entry, std::int64_t sizeLie);

} // namespace tessary
