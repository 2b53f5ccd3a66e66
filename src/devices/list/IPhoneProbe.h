#pragma once

#include "devices/list/DeviceProbe.h"

namespace tessary {

/// Asks an iPhone for its name, storage and battery, by a helper of its own. Blocking; one that
/// something works on is `busy`. Throws as askIPhoneFacts() does.
[[nodiscard]] DeviceAnswer askIPhone(DeviceServices& services, const DeviceInfo& device,
                                     const std::stop_token& stop);

} // namespace tessary
