#include "adb/ways/ADBKeyHelper.h"

#include "adb/protocol/ADBKeyCommands.h"
#include "platform/process/ChildChannel.h"

namespace tessary {

Bytes ADBKeyHelper::sign(ByteView token) {
    const QByteArray bytes(reinterpret_cast<const char*>(token.data()),
                           static_cast<qsizetype>(token.size()));
    return ask({adb_key::sign, QString::fromLatin1(bytes.toHex())});
}

Bytes ADBKeyHelper::getPhonePublicKeyPayload() {
    return ask({adb_key::phonePublicKey});
}

Bytes ADBKeyHelper::ask(const QStringList& arguments) const {
    // The desktop may ask for a password first, and gives a person a minute.
    constexpr std::chrono::seconds patience{90};
    const QString program = installedHelper(adb_key::program);
    if (program.isEmpty())
        throw Error(ADBError::noKey, {QStringLiteral("%1 is not installed").arg(adb_key::program)});
    const ProcessResult result = processes_.run(program, arguments, patience);
    if (result.succeeded()) {
        const auto* bytes = reinterpret_cast<const std::byte*>(result.standardOutput.constData());
        return {bytes, bytes + result.standardOutput.size()};
    }
    const QString reason = QString::fromUtf8(result.standardError).trimmed();
    if (result.outcome == ProcessResult::Outcome::exited)
        for (const adb_key::Failure& failure : adb_key::failures)
            if (failure.exitStatus == result.exitStatus)
                throw Error(failure.error, {reason});
    throw Error(ADBError::noKey, {QStringLiteral("%1 was ended").arg(adb_key::program)});
}

} // namespace tessary
