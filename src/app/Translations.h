#pragma once

#include <QString>

namespace tessary {

/// The words of a lower layer in the language of the interface. These hold names and details:
/// "Cannot read /a/b: no such file", "The phone is busy. (0x2019)". What is not known stays as it
/// is. For the main thread.
[[nodiscard]] QString trMessage(const QString& message);

} // namespace tessary
