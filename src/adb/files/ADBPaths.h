#pragma once

#include "phone/records/FileItem.h"

#include <QString>

namespace tessary {

/// The absolute path on the phone for a path as the program knows it: "", "/" and "/sdcard" are
/// "/sdcard", what begins with one of Android's own top folders stays, and everything else lies
/// below "/sdcard", as over MTP. No "/" at the end.
[[nodiscard]] QString androidPath(const QString& path);

/// The path of an item that is to be changed or copied. Throws TessaryError::fileIOError when its
/// name is none, when its path leads elsewhere ("..") or when it is a whole storage.
[[nodiscard]] QString requireItemPath(const FileItem& item);

} // namespace tessary
