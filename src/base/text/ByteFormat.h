#pragma once

#include <QString>

#include <cstdint>

namespace tessary {

/// A byte count as a file manager shows it: decimal units (1 kB = 1000 bytes), whole bytes and
/// kilobytes, one decimal for megabytes and two above ("512 bytes", "12 kB", "1.2 MB", "3.45 GB").
/// Numbers and units follow QLocale().
[[nodiscard]] QString formatBytes(qint64 bytes);

/// The same number of bytes as a signed one. Fatal above the signed range: whoever takes sizes from
/// a device clamps them.
[[nodiscard]] qint64 signedByteCount(std::uint64_t bytes);

} // namespace tessary
