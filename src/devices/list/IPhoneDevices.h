#pragma once

#include "ios/Multiplexer.h"
#include "phone/records/DeviceInfo.h"

#include <span>
#include <vector>

namespace tessary {

/// The iPhones of a multiplexer's list, one for each udid: of a phone that is there twice the
/// cable counts, else what came first. Their details are not known yet. Pure.
[[nodiscard]] std::vector<DeviceInfo> iosDevices(std::span<const MultiplexerEntry> entries);

/// The iPhones that are attached; none without a multiplexer. Blocking.
[[nodiscard]] std::vector<DeviceInfo> scanIPhoneDevices(Multiplexer& multiplexer);

} // namespace tessary
