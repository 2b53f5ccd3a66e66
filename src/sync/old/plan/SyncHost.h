#pragma once

#include "platform/settings/UserDefaults.h"

#include <QString>

namespace tessary {

/// This computer's identifier in manifests: a UUID in upper case under "Tessary_MacHostID" of the
/// settings, made on first use.
[[nodiscard]] QString syncHostID(UserDefaults& defaults);

} // namespace tessary
