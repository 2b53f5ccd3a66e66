#pragma once

#include <QString>

namespace tessary {

/// A text with its control characters and line breaks shown as "\u001b", so that a name from a
/// device can neither forge a line nor command a terminal.
[[nodiscard]] QString printable(const QString& text);

} // namespace tessary
