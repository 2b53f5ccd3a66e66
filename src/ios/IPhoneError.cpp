#include "ios/IPhoneError.h"

#include "phone/PhoneError.h"

#include <libimobiledevice/lockdown.h>

#include <algorithm>
#include <array>

namespace tessary {

namespace {

constexpr std::array names{"handshake",   "service",           "client",
                           "houseArrest", "installationProxy", "helper"};
static_assert(names.size() == static_cast<std::size_t>(lastIPhoneError) + 1);

struct Row {
    std::int32_t status;
    PhoneError meaning;
    bool isFinal = false;
};

constexpr std::array statuses{
    Row{LOCKDOWN_E_PAIRING_FAILED, PhoneError::notTrusted},
    Row{LOCKDOWN_E_SSL_ERROR, PhoneError::brokenOff},
    Row{LOCKDOWN_E_RECEIVE_TIMEOUT, PhoneError::noAnswer},
    Row{LOCKDOWN_E_MUX_ERROR, PhoneError::brokenOff},
    Row{LOCKDOWN_E_PLIST_ERROR, PhoneError::nonsense},
    Row{LOCKDOWN_E_DICT_ERROR, PhoneError::nonsense},
    Row{LOCKDOWN_E_INVALID_RESPONSE, PhoneError::nonsense},
    Row{LOCKDOWN_E_PASSWORD_PROTECTED, PhoneError::locked, true},
    Row{LOCKDOWN_E_ESCROW_LOCKED, PhoneError::locked},
    Row{LOCKDOWN_E_USER_DENIED_PAIRING, PhoneError::notTrusted, true},
    Row{LOCKDOWN_E_PAIRING_DIALOG_RESPONSE_PENDING, PhoneError::notTrusted, true},
    Row{LOCKDOWN_E_INVALID_HOST_ID, PhoneError::trustForgotten, true},
    Row{LOCKDOWN_E_PAIRING_PROHIBITED_OVER_THIS_CONNECTION, PhoneError::notReachable, true},
    Row{LOCKDOWN_E_SERVICE_PROHIBITED, PhoneError::notReachable},
    Row{LOCKDOWN_E_INVALID_SERVICE, PhoneError::notReachable},
    Row{LOCKDOWN_E_MC_PROTECTED, PhoneError::notReachable},
};

const Row* rowOf(std::int32_t status) {
    const auto* found = std::find_if(statuses.begin(), statuses.end(),
                                     [status](const Row& row) { return row.status == status; });
    return found == statuses.end() ? nullptr : found;
}

} // namespace

const char* errorName(IPhoneError error) {
    return names[static_cast<std::size_t>(error)];
}

Error lockdownErrorOf(std::int32_t status, const Error& cause) {
    const Row* row = rowOf(status);
    return Error(row != nullptr ? row->meaning : PhoneError::sessionEnded, {}, cause);
}

bool isFinalRefusal(std::int32_t status) {
    const Row* row = rowOf(status);
    return row != nullptr && row->isFinal;
}

Error houseArrestErrorOf(const QString& bundleId, const QString& reason) {
    const Error cause(IPhoneError::houseArrest, {bundleId, reason});
    const bool isLocked = reason == QLatin1StringView("PasswordProtected") ||
                          reason == QLatin1StringView("DeviceLocked");
    return Error(isLocked ? PhoneError::locked : PhoneError::notReachable, {}, cause);
}

} // namespace tessary
