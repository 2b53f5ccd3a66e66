#pragma once

#include "adb/protocol/ADBError.h"
#include "phone/PhoneError.h"

#include <QString>

namespace tessary {

/// What an error of the adb layer means for a phone's files: the PhoneError with that error as its
/// cause. `path` is what was worked on. Any other error stays as it is. Pure.
[[nodiscard]] Error phoneErrorOf(const Error& error, const QString& path);

/// The reason of a system call on the phone, by its number there.
[[nodiscard]] PhoneError phoneErrorOfErrno(std::uint32_t number);
/// The same by the words that Android's C library has for it, at the end of what a service or a
/// command says; PhoneError::refused for any other.
[[nodiscard]] PhoneError phoneErrorOfReason(const QString& reason);

} // namespace tessary
