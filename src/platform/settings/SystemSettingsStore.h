#pragma once

#include "platform/settings/SettingsStore.h"

#include <memory>

namespace tessary {

/// The settings of this user, in the file "tessary/settings.json" of the configuration folder
/// ($XDG_CONFIG_HOME, or ~/.config).
[[nodiscard]] std::unique_ptr<SettingsStore> makeSystemSettingsStore();

} // namespace tessary
