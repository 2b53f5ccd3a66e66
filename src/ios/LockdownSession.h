#pragma once

#include "ios/Lockdown.h"

namespace tessary {

/// Lockdown for callers that take its failures as TessaryError: `deviceNotFound` with the udid,
/// `lockdownFailed` with "Handshake failed: <status>", `serviceStartFailed` with
/// "<name> failed: <status>".
class LockdownSession : public Lockdown {
public:
    explicit LockdownSession(const QString& udid, const std::stop_token& stop = {},
                             const Pause& pause = waitFor);

    [[nodiscard]] LockdownService startService(const char* name);
};

} // namespace tessary
