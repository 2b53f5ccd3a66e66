#pragma once

#include "ios/Multiplexer.h"
#include "phone/records/DeviceInfo.h"

#include <span>
#include <vector>

namespace tessary {

/// The iPhones of a multiplexer's list, one for each udid: of a phone that is there twice the
/// cable counts, else what came first. Their details are not known yet. Pure.
[[nodiscard]] std::vector<DeviceInfo> iosDevices(std::span<const MultiplexerEntry> entries);

} // namespace tessary
