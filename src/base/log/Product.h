#pragma once

#include <QString>

namespace tessary {

/// The running version, dotted numbers ("0.1.0").
[[nodiscard]] QString productVersion();

} // namespace tessary
