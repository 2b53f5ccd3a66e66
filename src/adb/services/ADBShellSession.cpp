#include "adb/services/ADBShellSession.h"

#include "adb/protocol/ADBError.h"
#include "base/values/LittleEndian.h"

#include <QUuid>

#include <algorithm>

namespace tessary {

namespace {

/// Kinds of the packets of version 2: u8 kind, u32 length, content.
constexpr auto standardInput = std::byte{0};
constexpr auto standardOutput = std::byte{1};
constexpr auto exitStatus = std::byte{3};
constexpr std::size_t frontSize = 5;

Bytes inputPacket(const QByteArray& text) {
    Bytes packet{standardInput};
    appendLittleEndian(packet, static_cast<std::uint32_t>(text.size()));
    const auto* data = reinterpret_cast<const std::byte*>(text.constData());
    packet.insert(packet.end(), data, data + text.size());
    return packet;
}

} // namespace

ADBShellSession::ADBShellSession(ADBConnection& connection, const Wait& wait)
    : mark_("tessary-" + QUuid::createUuid().toByteArray(QUuid::Id128) + ':'),
      stream_(connection.open("shell,v2,raw:", wait)),
      reader_(*stream_) {}

ADBCommandResult ADBShellSession::run(const QByteArray& command, const Wait& wait) {
    isSound_ = false;
    stream_->write(inputPacket(command + " 2>&1; echo " + mark_ + "$?\n"), wait);
    ADBCommandResult result;
    for (;;) {
        const ByteView front = reader_.take(frontSize, wait);
        const std::byte kind = front[0];
        auto left = readLittleEndian<std::uint32_t>(front, 1);
        if (kind == exitStatus)
            throw Error(ADBError::brokenOff, {QStringLiteral("the phone's shell has ended")});
        while (left > 0) {
            const ByteView piece = reader_.takeSome(left, wait);
            left -= static_cast<std::uint32_t>(piece.size());
            if (kind == standardOutput)
                result.output.append(reinterpret_cast<const char*>(piece.data()),
                                     static_cast<qsizetype>(piece.size()));
            if (result.output.size() > ADBShellClient::outputLimit)
                throw Error(ADBError::nonsense, {QStringLiteral("a command's endless output")});
        }
        if (!result.output.endsWith('\n'))
            continue;
        constexpr qsizetype longestStatus = 16; // and the line's end
        const qsizetype mark = result.output.indexOf(
            mark_, std::max<qsizetype>(0, result.output.size() - mark_.size() - longestStatus));
        if (mark < 0)
            continue;
        bool isNumber = false;
        result.status = result.output.mid(mark + mark_.size()).trimmed().toInt(&isNumber);
        if (!isNumber)
            throw Error(ADBError::nonsense, {QStringLiteral("an exit status")});
        result.output.truncate(mark);
        if (result.status != 0)
            result.errors = result.output;
        isSound_ = true;
        return result;
    }
}

} // namespace tessary
