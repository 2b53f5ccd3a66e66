#pragma once

#include <QString>

namespace tessary {

/// A text with what is more than a sign on the screen shown as "\u001b": control characters and
/// line breaks, characters that turn the reading direction, that hide themselves, and halves of
/// pairs. A name from a device can then neither forge a line, nor command a terminal, nor pass
/// "exe.jpg" off as "gpj.exe".
[[nodiscard]] QString printable(const QString& text);

/// The same for a text of several lines, whose line feeds stay. What is escaped inside a string of
/// a JSON document means the same there.
[[nodiscard]] QString printableLines(const QString& text);

} // namespace tessary
