#pragma once

#include "phones/AdbdFiles.h"

#include <string>

namespace tessary {

/// One line of `ls -la` with its line break, in local time. `sizeLie` is added to the size.
[[nodiscard]] std::string adbdListingLine(const AdbdEntry& entry, AdbdListingForm form,
                                          std::int64_t sizeLie);

} // namespace tessary
