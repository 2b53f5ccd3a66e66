#include "adb/services/ADBShellClient.h"

#include "adb/protocol/ADBError.h"
#include "adb/services/ADBShellPacket.h"

namespace tessary {

namespace {

constexpr qsizetype errorsLimit = 64 * 1024;

/// What stands before the exit status where the protocol has no place for it.
const QByteArray& statusMark() {
    static const QByteArray mark = "tessary-status:";
    return mark;
}

} // namespace

QByteArray shellQuoted(const QByteArray& text) {
    return '\'' + QByteArray(text).replace('\'', "'\\''") + '\'';
}

ADBCommandResult ADBShellClient::run(const QByteArray& line, const Wait& wait) {
    if (!hasVersion2_)
        return runOld(line, wait);
    QByteArray output;
    ADBCommandResult result = stream(
        line,
        [&](ByteView bytes) {
            appendOutput(output, bytes, outputLimit);
            return true;
        },
        wait);
    result.output = std::move(output);
    return result;
}

ADBCommandResult ADBShellClient::stream(const QByteArray& line,
                                        const std::function<bool(ByteView)>& output,
                                        const Wait& wait) {
    const auto service = connection_.open("shell,v2,raw:" + line, wait);
    ADBReader reader(*service);
    ADBCommandResult result;
    ADBPassedOver passedOver;
    for (;;) {
        auto [kind, left] = ADBShellPacket::take(reader, wait);
        if (kind == ADBShellPacket::exitStatus) {
            if (left != 1)
                throw Error(ADBError::nonsense, {QStringLiteral("an exit status")});
            result.status = std::to_integer<int>(reader.take(1, wait)[0]);
            return result;
        }
        if (left == 0)
            passedOver.add(0);
        while (left > 0) {
            const ByteView piece = reader.takeSome(left, wait);
            left -= static_cast<std::uint32_t>(piece.size());
            if (kind == ADBShellPacket::standardError)
                appendOutput(result.errors, piece, errorsLimit);
            else if (kind != ADBShellPacket::standardOutput)
                passedOver.add(piece.size());
            else if (!output(piece))
                return result;
        }
    }
}

/// "exec:" has no terminal that would turn line ends into two characters.
ADBCommandResult ADBShellClient::runOld(const QByteArray& line, const Wait& wait) {
    const auto service = connection_.open("exec:" + line + "; echo " + statusMark() + "$?", wait);
    ADBReader reader(*service);
    ADBCommandResult result;
    while (!reader.isAtEnd(wait))
        appendOutput(result.output, reader.takeSome(ADBReader::capacity, wait), outputLimit);
    const qsizetype mark = result.output.lastIndexOf(statusMark());
    bool isNumber = false;
    result.status =
        mark < 0 ? 0 : result.output.mid(mark + statusMark().size()).trimmed().toInt(&isNumber);
    if (!isNumber)
        throw Error(ADBError::brokenOff);
    result.output.truncate(mark);
    return result;
}

} // namespace tessary
