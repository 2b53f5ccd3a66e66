#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace tessary {

/// The beginning of a text file.
struct TextSample {
    /// Bytes that are looked at.
    static constexpr qsizetype maxBytes = 256 * 1024;

    QString text;
    bool isCut = false; ///< the file goes on
};

/// The text in the first bytes of a file, in the encoding that they seem to be in: by a byte order
/// mark, UTF-8 when they are, UTF-16 by its zeros, else Latin-1. Nothing for bytes that are no
/// text. Pure.
[[nodiscard]] std::optional<TextSample> textSampleOf(const QByteArray& bytes);

/// The same for a file; nothing also when it cannot be read. Blocking.
[[nodiscard]] std::optional<TextSample> readTextSample(const QString& path);

} // namespace tessary
