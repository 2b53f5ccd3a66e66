#pragma once

#include <QString>

namespace tessary {

/// The form in which names are compared: phones' storages ignore case, and some the Unicode form.
/// Pure.
[[nodiscard]] QString nameForPhones(const QString& name);

} // namespace tessary
