#pragma once

#include "adb/server/ADBDevices.h"
#include "cli/terminal/CommandLine.h"
#include "devices/list/DeviceSources.h"
#include "phone/records/DeviceInfo.h"

#include <stop_token>
#include <vector>

namespace tessary {

/// The one attached device that a request's text fits: as a udid, else as the beginning of one,
/// else as a name. Blocking: the names of iPhones are asked of them, when it comes to names.
/// CliFailure, in words that say what to do, when none or several fit.
[[nodiscard]] DeviceInfo chooseDevice(DeviceSources sources, const CliRequest& request,
                                      const std::stop_token& stop,
                                      const std::vector<ADBDevice>& reachedByADB = {});

} // namespace tessary
