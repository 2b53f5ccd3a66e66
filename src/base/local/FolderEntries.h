#pragma once

#include "base/values/FreeWith.h"

#include <dirent.h>

#include <memory>

namespace tessary {

using FolderEntries = std::unique_ptr<DIR, FreeWith<::closedir>>;

/// The entries of an open folder, from the first one on if nobody has read from it; for readdir().
/// Null, with errno, when it fails. No child process inherits it.
[[nodiscard]] FolderEntries entriesOf(int folder);

} // namespace tessary
