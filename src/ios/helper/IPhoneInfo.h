#pragma once

#include "ios/Lockdown.h"
#include "phone/records/AppInfo.h"

#include <QString>

#include <stop_token>
#include <vector>

namespace tessary {

// What an iPhone tells, for callers that take failures as TessaryError: `deviceNotFound` with the
// udid, `lockdownFailed` with "Handshake failed: <status>", `serviceStartFailed` and
// `instProxyFailed` with the status. The phone's bytes are parsed by a helper. Blocking, for less
// than a minute; CancellationError at once when `stop` asks.

[[nodiscard]] IPhoneFacts iphoneFacts(const QString& udid, const std::stop_token& stop);
/// The user's apps that share files, by display name.
[[nodiscard]] std::vector<AppInfo> iphoneApps(const QString& udid, const std::stop_token& stop);

} // namespace tessary
