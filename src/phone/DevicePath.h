#pragma once

#include "base/text/PathNames.h"

#include <QString>

namespace tessary {

/// A path as a person or Android writes it, as a storage-relative one that begins with "/": "",
/// "/sdcard" and "/storage/emulated/0" are "/", and those two prefixes are taken off. Blanks are
/// part of it: names on a phone may begin and end with them. The result may end in "/".
[[nodiscard]] QString storageRelativePath(const QString& path);

} // namespace tessary
