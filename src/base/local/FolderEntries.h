#pragma once

#include "base/values/FreeWith.h"

#include <dirent.h>

#include <memory>

namespace tessary {

using FolderEntries = std::unique_ptr<DIR, FreeWith<::closedir>>;

/// The entries of an open folder, from the first one on; for readdir(). The folder may be open for
/// its path only. Null, with errno, when it fails. No child process inherits it.
[[nodiscard]] FolderEntries entriesOf(int folder);

} // namespace tessary
