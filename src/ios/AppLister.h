#pragma once

#include "ios/Lockdown.h"
#include "phone/records/AppInfo.h"

#include <vector>

namespace tessary {

/// The user's apps that share files, by display name. Blocking. Throws Error as lockdown does, or
/// with IPhoneError::installationProxy as its cause.
[[nodiscard]] std::vector<AppInfo> appsOf(Lockdown& session);

/// The same from the installation proxy's answer, an array of dictionaries. An app without an
/// identifier, or one that does not share files, is left out. Pure.
[[nodiscard]] std::vector<AppInfo> fileSharingAppsIn(plist_t answer);

} // namespace tessary
