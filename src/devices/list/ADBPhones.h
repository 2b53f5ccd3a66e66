#pragma once

#include "adb/server/ADBDevices.h"
#include "phone/records/DeviceInfo.h"

#include <vector>

namespace tessary {

/// What adb adds to the Android phones of the USB bus: a phone that it reaches is in Turbo mode,
/// and one that is not on the bus is listed as a network connection, named by its model. A phone
/// that both know under one serial number stays one entry. Pure.
void addADBPhones(std::vector<DeviceInfo>& phones, const std::vector<ADBDevice>& reached);

} // namespace tessary
