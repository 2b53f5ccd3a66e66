#include "ios/helper/IPhoneInfo.h"

#include "base/values/TessaryError.h"
#include "ios/IPhoneError.h"
#include "ios/helper/IPhoneHelper.h"
#include "phone/PhoneError.h"

namespace tessary {

namespace {

TessaryError oldErrorOf(const Error& error, const QString& udid) {
    const Error* cause = error.cause();
    if (error.is(PhoneError::notConnected) || error.is(PhoneError::unplugged) || cause == nullptr)
        return TessaryError::deviceNotFound(udid);
    const QString status = cause->arguments().value(cause->arguments().size() - 1).toString();
    if (cause->is(IPhoneError::service))
        return TessaryError::serviceStartFailed(
            QStringLiteral("%1 failed: %2").arg(cause->arguments().front().toString(), status));
    if (cause->is(IPhoneError::installationProxy))
        return TessaryError::instProxyFailed(QStringLiteral("Browse failed: %1").arg(status));
    if (cause->is(IPhoneError::helper))
        return TessaryError::lockdownFailed(
            error.is(PhoneError::noAnswer)
                ? QStringLiteral("The phone does not answer")
                : QStringLiteral("The phone sends what makes no sense (%1)").arg(status));
    return TessaryError::lockdownFailed(QStringLiteral("Handshake failed: %1").arg(status));
}

} // namespace

IPhoneFacts iphoneFacts(const QString& udid, const std::stop_token& stop) {
    try {
        return askIPhoneFacts(udid, stop);
    } catch (const Error& error) {
        throw oldErrorOf(error, udid);
    }
}

std::vector<AppInfo> iphoneApps(const QString& udid, const std::stop_token& stop) {
    try {
        return askIPhoneApps(udid, stop);
    } catch (const Error& error) {
        throw oldErrorOf(error, udid);
    }
}

} // namespace tessary
