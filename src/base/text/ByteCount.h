#pragma once

#include <QtGlobal>
#include <QtNumeric>

#include <cstdint>
#include <limits>

namespace tessary {

// What devices and files claim to hold may be any number: counts of it stay in range. Pure.

/// The largest signed count for what is above it.
[[nodiscard]] constexpr qint64 clampedByteCount(std::uint64_t bytes) {
    constexpr auto most = std::numeric_limits<qint64>::max();
    return bytes > static_cast<std::uint64_t>(most) ? most : static_cast<qint64>(bytes);
}

/// A sum that stops at either end of the range.
[[nodiscard]] inline qint64 addByteCounts(qint64 a, qint64 b) {
    qint64 sum = 0;
    if (!qAddOverflow(a, b, &sum))
        return sum;
    return b > 0 ? std::numeric_limits<qint64>::max() : std::numeric_limits<qint64>::min();
}

} // namespace tessary
