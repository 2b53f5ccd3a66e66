#pragma once

#include <QByteArray>

namespace tessary {

/// Bytes of which no two pieces are the same.
[[nodiscard]] inline QByteArray manyBytes(qsizetype count) {
    QByteArray bytes(count, Qt::Uninitialized);
    for (qsizetype n = 0; n < count; ++n)
        bytes[n] = static_cast<char>(n * 31 + n / 251);
    return bytes;
}

} // namespace tessary
