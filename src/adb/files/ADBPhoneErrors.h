#pragma once

#include "adb/protocol/ADBError.h"
#include "phone/PhoneError.h"

#include <QString>

namespace tessary {

/// What an error of the adb layer means for a phone's files: the PhoneError with that error as its
/// cause. `path` is what was worked on. Any other error stays as it is. Pure.
[[nodiscard]] Error phoneErrorOf(const Error& error, const QString& path);

} // namespace tessary
