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
/// At most the first 256 units of a text that stands for a device, or something of it: laying out
/// one of millions stops a window. No pair is cut in two.
[[nodiscard]] QString shortened(const QString& text);

} // namespace tessary
