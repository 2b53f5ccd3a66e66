#include "simulator/wire/MuxPacket.h"

#include "base/values/LittleEndian.h"
#include "simulator/wire/PlistCodec.h"

namespace tessary {

std::optional<MuxHeader> MuxHeader::decode(ByteView bytes) {
    if (bytes.size() < size)
        return std::nullopt;
    MuxHeader header;
    header.length = readLittleEndian<std::uint32_t>(bytes, 0);
    header.version = readLittleEndian<std::uint32_t>(bytes, 4);
    header.message = readLittleEndian<std::uint32_t>(bytes, 8);
    header.tag = readLittleEndian<std::uint32_t>(bytes, 12);
    return header.length < size ? std::nullopt : std::optional(header);
}

Bytes encodeMuxPacket(const QVariantMap& body, std::uint32_t tag) {
    const Bytes list = PlistCodec::encode(body, PlistForm::xml);
    Bytes packet;
    packet.reserve(MuxHeader::size + list.size());
    appendLittleEndian(packet, static_cast<std::uint32_t>(MuxHeader::size + list.size()));
    appendLittleEndian(packet, MuxHeader::plistVersion);
    appendLittleEndian(packet, MuxHeader::plistMessage);
    appendLittleEndian(packet, tag);
    packet.insert(packet.end(), list.begin(), list.end());
    return packet;
}

} // namespace tessary
