#pragma once

#include "base/values/Error.h"

#include <QString>

#include <cstdint>

namespace tessary {

/// What an iPhone's services answered, as causes of errors. Arguments stand behind each case; a
/// status is the library's number, a reason the phone's own word.
enum class IPhoneError {
    handshake,         ///< status: lockdown opened no session
    service,           ///< service, status: lockdown did not start it
    client,            ///< service, status: no connection to it
    houseArrest,       ///< bundle identifier, reason
    installationProxy, ///< status
    helper,            ///< what happened: the program that speaks to the phone ended, or had to
};
inline constexpr IPhoneError lastIPhoneError = IPhoneError::helper;

[[nodiscard]] constexpr ErrorLayer errorLayer(IPhoneError) {
    return ErrorLayer::iphone;
}
[[nodiscard]] const char* errorName(IPhoneError error);

/// What it means that lockdown refused something with a status: an error of PhoneError about the
/// phone as a whole, with `cause` below it.
[[nodiscard]] Error lockdownErrorOf(std::int32_t status, const Error& cause);

/// Whether lockdown would answer the same again, and asking again would bother the user: the phone
/// shows the question of trust, was told no, has forgotten this computer, or is locked.
[[nodiscard]] bool isFinalRefusal(std::int32_t status);

/// What it means that house arrest refused an app with a reason.
[[nodiscard]] Error houseArrestErrorOf(const QString& bundleId, const QString& reason);

} // namespace tessary
