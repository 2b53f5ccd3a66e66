#pragma once

#include "platform/settings/SettingsStore.h"

#include <QString>

namespace tessary {

/// This computer's identifier in manifests: a UUID in upper case under "Tessary_MacHostID" of the
/// settings. Made on first use, of the machine and the user: where settings cannot be stored it is
/// the same one again.
[[nodiscard]] QString syncHostID(SettingsStore& defaults);
/// The same, without storing it.
[[nodiscard]] QString foreseenHostID(const SettingsStore& defaults);

} // namespace tessary
