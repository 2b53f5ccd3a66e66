#pragma once

#include <QString>

namespace tessary {

/// Where a transfer stands. All counters are signed 64-bit; bytes unless they count files.
struct TransferProgress {
    qint64 totalFiles = 0;
    qint64 completedFiles = 0;
    qint64 totalBytes = 0;
    qint64 completedBytes = 0; ///< bytes of the finished files
    qint64 currentFileBytes = 0;

    /// "3/10 files"; a counter that runs ahead is shown as the total.
    [[nodiscard]] QString fileCountDescription() const;
    /// "900 kB / 1.2 MB", clamped to the total.
    [[nodiscard]] QString bytesDescription() const;
    /// Of all files; may run ahead of the total.
    [[nodiscard]] qint64 bytesDone() const;

    bool operator==(const TransferProgress&) const = default;
};

} // namespace tessary
