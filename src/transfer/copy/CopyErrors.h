#pragma once

#include "base/values/Error.h"

namespace tessary {

class PhoneFileSystem;

// What an error of either side means for a copy of many files.

/// No room is left at the target.
[[nodiscard]] bool isFull(const Error& error);
/// Something has the wanted name.
[[nodiscard]] bool isTaken(const Error& error);
/// No further item can do better: the phone is lost, or the target is full.
[[nodiscard]] bool endsCopy(const Error& error);
/// What was seen at a path is not what is there now.
[[nodiscard]] bool saysChanged(const Error& error);
/// The error for an item of a file system that is not what was seen any more.
[[nodiscard]] Error changedError(const PhoneFileSystem& files, const QString& path);

} // namespace tessary
