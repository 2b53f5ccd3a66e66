#pragma once

#include <QString>

namespace tessary {

/// The name of this computer as its user set it, or its network name; empty when it has none.
[[nodiscard]] QString computerName();

/// The login name of the user whose program this is; empty when the system knows none.
[[nodiscard]] QString loginName();

} // namespace tessary
