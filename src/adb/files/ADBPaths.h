#pragma once

#include <QString>

namespace tessary {

/// The absolute path on the phone for a path as the program knows it: "", "/" and "/sdcard" are
/// "/sdcard", what begins with one of Android's own top folders stays, and everything else lies
/// below "/sdcard", as over MTP. No "/" at the end.
[[nodiscard]] QString androidPath(const QString& path);

} // namespace tessary
