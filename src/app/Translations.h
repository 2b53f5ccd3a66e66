#pragma once

#include <QString>

namespace tessary {

/// The text for a key in the language of the interface. Keys are dotted identifiers
/// ("browser.retry") or the English text itself, which stands for itself.
[[nodiscard]] QString tr(const QString& key);

/// The same for a literal key.
[[nodiscard]] QString tr(const char* key);

} // namespace tessary
