#pragma once

#include <QString>

namespace tessary {

/// The name of this computer as its user set it, or its network name; empty when it has none.
[[nodiscard]] QString computerName();

} // namespace tessary
