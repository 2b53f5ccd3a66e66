#include "adb/ways/ADBKeyHelper.h"

#include "adb/protocol/ADBKeyCommands.h"
#include "base/threads/CancellationError.h"
#include "platform/process/ChildChannel.h"

namespace tessary {

Bytes ADBKeyHelper::sign(ByteView token, const std::stop_token& stop) {
    return ask({adb_key::sign, QString::fromLatin1(QByteArrayView(token).toByteArray().toHex())},
               stop);
}

Bytes ADBKeyHelper::getPhonePublicKeyPayload(const std::stop_token& stop) {
    return ask({adb_key::phonePublicKey}, stop);
}

Bytes ADBKeyHelper::ask(const QStringList& arguments, const std::stop_token& stop) const {
    // The desktop may ask for a password first, and gives a person a minute.
    constexpr std::chrono::seconds patience{90};
    const QString program = installedHelper(adb_key::program);
    if (program.isEmpty())
        throw Error(ADBError::noKey, {QStringLiteral("%1 is not installed").arg(adb_key::program)});
    ProcessRequest request;
    request.program = program;
    request.arguments = arguments;
    request.limit = patience;
    request.stop = stop;
    const ProcessResult result = processes_.follow(request);
    if (result.succeeded()) {
        const ByteView bytes = std::as_bytes(std::span(result.standardOutput));
        return {bytes.begin(), bytes.end()};
    }
    throwIfStopped(stop);
    const QString reason = QString::fromUtf8(result.standardError).trimmed();
    if (result.outcome == ProcessResult::Outcome::exited)
        for (const adb_key::Failure& failure : adb_key::failures)
            if (failure.exitStatus == result.exitStatus)
                throw Error(failure.error, {reason});
    throw Error(ADBError::noKey, {QStringLiteral("%1 was ended").arg(adb_key::program)});
}

} // namespace tessary
