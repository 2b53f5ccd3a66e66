#pragma once

#include <QString>

namespace tessary {

/// A text with its control characters, its line breaks and what turns the reading direction round
/// shown as "\u001b", so that a name from a device can neither forge a line nor command a terminal,
/// nor look like another.
[[nodiscard]] QString printable(const QString& text);

} // namespace tessary
