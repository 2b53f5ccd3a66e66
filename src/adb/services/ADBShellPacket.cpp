#include "adb/services/ADBShellPacket.h"

#include "adb/protocol/ADBError.h"
#include "base/values/LittleEndian.h"

namespace tessary {

ADBShellPacket ADBShellPacket::take(ADBReader& reader, const Wait& wait) {
    const ByteView front = reader.take(frontSize, wait);
    return {front[0], readLittleEndian<std::uint32_t>(front, 1)};
}

void ADBShellPacket::appendFront(Bytes& bytes, std::byte kind, std::size_t length) {
    bytes.push_back(kind);
    appendLittleEndian(bytes, static_cast<std::uint32_t>(length));
}

Bytes ADBShellPacket::input(const QByteArray& text) {
    Bytes packet;
    appendFront(packet, standardInput, static_cast<std::size_t>(text.size()));
    const ByteView bytes = std::as_bytes(std::span(text));
    packet.insert(packet.end(), bytes.begin(), bytes.end());
    return packet;
}

void ADBPassedOver::throwEndless() {
    throw Error(ADBError::nonsense, {QStringLiteral("packets without an end")});
}

void appendOutput(QByteArray& to, ByteView bytes, qsizetype most) {
    if (to.size() + static_cast<qsizetype>(bytes.size()) > most)
        throw Error(ADBError::nonsense, {QStringLiteral("a command's endless output")});
    to.append(QByteArrayView(bytes));
}

} // namespace tessary
