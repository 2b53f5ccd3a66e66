#pragma once

#include "adb/protocol/ADBError.h"
#include "app/texts/ErrorWords.h"

#include <optional>

namespace tessary {

/// The words of a failure on the way to a phone by adb, where they say more than those of the
/// PhoneError that it comes to.
[[nodiscard]] std::optional<ErrorWords> wordsOf(ADBError error);

} // namespace tessary
