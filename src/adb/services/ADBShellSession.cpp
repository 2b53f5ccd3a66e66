#include "adb/services/ADBShellSession.h"

#include "adb/protocol/ADBError.h"
#include "adb/services/ADBShellPacket.h"

#include <QUuid>

#include <algorithm>

namespace tessary {

ADBShellSession::ADBShellSession(ADBConnection& connection, const Wait& wait)
    : mark_("tessary-" + QUuid::createUuid().toByteArray(QUuid::Id128) + ':'),
      stream_(connection.open("shell,v2,raw:", wait)),
      reader_(*stream_) {}

ADBCommandResult ADBShellSession::run(const QByteArray& command, const Wait& wait) {
    isSound_ = false;
    stream_->write(ADBShellPacket::input(command + " 2>&1; echo " + mark_ + "$?\n"), wait);
    ADBCommandResult result;
    ADBPassedOver passedOver;
    for (;;) {
        auto [kind, left] = ADBShellPacket::take(reader_, wait);
        if (kind == ADBShellPacket::exitStatus)
            throw Error(ADBError::brokenOff, {QStringLiteral("the phone's shell has ended")});
        if (left == 0)
            passedOver.add(0);
        while (left > 0) {
            const ByteView piece = reader_.takeSome(left, wait);
            left -= static_cast<std::uint32_t>(piece.size());
            if (kind == ADBShellPacket::standardOutput)
                appendOutput(result.output, piece, ADBShellClient::outputLimit);
            else
                passedOver.add(piece.size());
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
