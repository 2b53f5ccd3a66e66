#pragma once

#include "core/DeviceInfo.h"
#include "files/AdbDevices.h"

#include <vector>

namespace tessary {

/// What adb adds to the Android phones of the USB bus: a phone that it reaches is in Turbo mode,
/// and one that is not on the bus is listed as a network connection, named by its model. A phone
/// that both know under one serial number stays one entry. Pure.
void addAdbPhones(std::vector<DeviceInfo>& phones, const std::vector<AdbDevice>& reached);

} // namespace tessary
