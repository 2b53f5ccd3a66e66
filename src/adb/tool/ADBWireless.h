#pragma once

#include "adb/tool/ADBTool.h"

#include <QString>

#include <stop_token>

namespace tessary {

/// Has adb reach a phone on the network, at "<host>:<port>". Blocks for seconds. Empty when it is
/// reached, else why not, in words for a person. Throws CancellationError.
[[nodiscard]] QString connectOverNetwork(const ADBTool& tool, const QString& address,
                                         const std::stop_token& stop);

/// Makes a phone and this computer known to each other, by the code that the phone shows. The same
/// otherwise.
[[nodiscard]] QString pairOverNetwork(const ADBTool& tool, const QString& address,
                                      const QString& code, const std::stop_token& stop);

} // namespace tessary
