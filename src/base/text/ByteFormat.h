#pragma once

#include <QString>

namespace tessary {

/// A byte count as a file manager shows it: decimal units (1 kB = 1000 bytes), whole bytes and
/// kilobytes, one decimal for megabytes and two above ("512 bytes", "12 kB", "1.2 MB", "3.45 GB").
/// Numbers and units follow QLocale().
[[nodiscard]] QString formatBytes(qint64 bytes);

} // namespace tessary
