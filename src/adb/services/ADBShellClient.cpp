#include "adb/services/ADBShellClient.h"

#include "adb/protocol/ADBError.h"
#include "adb/services/ADBShellPacket.h"

#include <algorithm>

namespace tessary {

namespace {

constexpr qsizetype errorsLimit = 64 * 1024;
constexpr const char* newShell = "shell,v2,raw:";

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
    const auto service = connection_.open(newShell + line, wait);
    ADBReader reader(*service);
    return wholeResultOf(reader, wait);
}

ADBCommandResult ADBShellClient::stream(const QByteArray& line,
                                        const std::function<bool(ByteView)>& output,
                                        const Wait& wait) {
    const auto service = connection_.open(newShell + line, wait);
    ADBReader reader(*service);
    return resultOf(reader, output, wait);
}

ADBCommandResult
ADBShellClient::feed(const QByteArray& line,
                     const std::function<std::size_t(std::span<std::byte>)>& source,
                     const std::function<void(std::uint64_t)>& sent, const Wait& wait) {
    constexpr std::size_t piece = 64 * 1024;
    const auto service = connection_.open(newShell + line, wait);
    ADBReader reader(*service);
    Bytes packet(ADBShellPacket::frontSize + piece);
    const auto takes = [&](std::byte kind, std::size_t count) {
        Bytes front;
        ADBShellPacket::appendFront(front, kind, count);
        std::copy(front.begin(), front.end(), packet.begin());
        try {
            service->write(ByteView(packet).first(front.size() + count), wait);
            return true;
        } catch (const Error& error) {
            if (!error.is(ADBError::brokenOff))
                throw;
            return false; // it has ended, and what it said may still be there
        }
    };
    std::uint64_t total = 0;
    while (!reader.hasBytes()) {
        const std::size_t count = source(std::span(packet).subspan(ADBShellPacket::frontSize));
        if (count == 0 || !takes(ADBShellPacket::standardInput, count))
            break;
        sent(total += count);
    }
    (void)takes(ADBShellPacket::endOfInput, 0);
    return wholeResultOf(reader, wait);
}

/// All that a command says, its output included.
ADBCommandResult ADBShellClient::wholeResultOf(ADBReader& reader, const Wait& wait) {
    QByteArray output;
    ADBCommandResult result = resultOf(
        reader,
        [&](ByteView bytes) {
            appendOutput(output, bytes, outputLimit);
            return true;
        },
        wait);
    result.output = std::move(output);
    return result;
}

/// All that a command says, its output handed on until `output` says that it is enough.
ADBCommandResult ADBShellClient::resultOf(ADBReader& reader,
                                          const std::function<bool(ByteView)>& output,
                                          const Wait& wait) {
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
