#pragma once

#include "devices/list/DeviceProbe.h"

namespace tessary {

/// Asks an iPhone for its name, unless it is known, and its storage, over a lockdown session of
/// its own. Blocking; one that something works on is
/// `busy`, a phone that refuses is `failed` with words for its owner.
[[nodiscard]] DeviceAnswer askIPhone(DeviceServices& services, const DeviceInfo& device,
                                     const std::stop_token& stop);

} // namespace tessary
