#pragma once

#include "adb/tool/ADBTool.h"

#include <QString>

#include <stop_token>

namespace tessary {

/// Has adb reach a phone on the network, at "<host>:<port>". Blocks for seconds. Throws Error with
/// a code of ADBError when it is not reached, and CancellationError.
void connectOverNetwork(const ADBTool& tool, const QString& address, const std::stop_token& stop);

/// Makes a phone and this computer known to each other, by the code that the phone shows. The same
/// otherwise.
void pairOverNetwork(const ADBTool& tool, const QString& address, const QString& code,
                     const std::stop_token& stop);

} // namespace tessary
