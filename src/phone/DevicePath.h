#pragma once

#include "base/text/PathNames.h"

#include <QString>

namespace tessary {

/// A path as a person or Android writes it, as a storage-relative one that begins with "/": blanks
/// around it are dropped, "", "/sdcard" and "/storage/emulated/0" are "/", and those two prefixes
/// are taken off. The result may end in "/".
[[nodiscard]] QString normalizePath(const QString& path);

/// The same without dropping blanks: names on a phone may begin and end with them.
[[nodiscard]] QString storageRelativePath(const QString& path);

} // namespace tessary
