#include "ios/LockdownSession.h"

#include "base/values/TessaryError.h"
#include "ios/IPhoneError.h"

namespace tessary {

LockdownSession::LockdownSession(const QString& udid, const std::stop_token& stop,
                                 const Pause& pause) try
    : Lockdown(udid, stop, pause) {
} catch (const Error& error) {
    if (error.cause() == nullptr)
        throw TessaryError::deviceNotFound(udid);
    throw TessaryError::lockdownFailed(
        QStringLiteral("Handshake failed: %1").arg(error.cause()->arguments().front().toInt()));
}

LockdownService LockdownSession::startService(const char* name) {
    try {
        return Lockdown::startService(name);
    } catch (const Error& error) {
        throw TessaryError::serviceStartFailed(QStringLiteral("%1 failed: %2")
                                                   .arg(QString::fromLatin1(name))
                                                   .arg(error.cause()->arguments().back().toInt()));
    }
}

} // namespace tessary
