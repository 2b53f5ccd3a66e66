#include "adb/services/ADBShellClient.h"

#include "adb/protocol/ADBError.h"
#include "adb/services/ADBReader.h"
#include "base/values/LittleEndian.h"

namespace tessary {

namespace {

/// Kinds of the packets of version 2: u8 kind, u32 length, content.
constexpr auto standardOutput = std::byte{1};
constexpr auto standardError = std::byte{2};
constexpr auto exitStatus = std::byte{3};
constexpr std::size_t frontSize = 5;

constexpr qsizetype errorsLimit = 64 * 1024;

/// What stands before the exit status where the protocol has no place for it.
const QByteArray& statusMark() {
    static const QByteArray mark = "tessary-status:";
    return mark;
}

void append(QByteArray& to, ByteView bytes, qsizetype most) {
    if (to.size() + static_cast<qsizetype>(bytes.size()) > most)
        throw Error(ADBError::nonsense, {QStringLiteral("a command's endless output")});
    to.append(reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size()));
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
            append(output, bytes, outputLimit);
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
    for (;;) {
        const ByteView front = reader.take(frontSize, wait);
        const std::byte kind = front[0];
        auto left = readLittleEndian<std::uint32_t>(front, 1);
        if (kind == exitStatus) {
            if (left != 1)
                throw Error(ADBError::nonsense, {QStringLiteral("an exit status")});
            result.status = std::to_integer<int>(reader.take(1, wait)[0]);
            return result;
        }
        while (left > 0) {
            const ByteView piece = reader.takeSome(left, wait);
            left -= static_cast<std::uint32_t>(piece.size());
            if (kind == standardOutput && !output(piece))
                return result;
            if (kind == standardError)
                append(result.errors, piece, errorsLimit);
        }
    }
}

/// "exec:" has no terminal that would turn line ends into two characters.
ADBCommandResult ADBShellClient::runOld(const QByteArray& line, const Wait& wait) {
    const auto service = connection_.open("exec:" + line + "; echo " + statusMark() + "$?", wait);
    ADBReader reader(*service);
    ADBCommandResult result;
    while (!reader.isAtEnd(wait))
        append(result.output, reader.takeSome(ADBReader::capacity, wait), outputLimit);
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
