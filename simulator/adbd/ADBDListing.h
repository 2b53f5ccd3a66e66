#pragma once

#include "simulator/adbd/ADBDFiles.h"

#include <string>

namespace tessary {

/// One line of `ls -la` with its line break, in local time. `sizeLie` is added to the size.
[[nodiscard]] std::string adbdListingLine(const ADBDEntry& entry, ADBDListingForm form,
                                          std::int64_t sizeLie);

} // namespace tessary
