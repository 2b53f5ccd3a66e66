#pragma once

#include "base/values/Bytes.h"

#include <QVariant>

#include <cstdint>
#include <optional>

namespace tessary {

/// The multiplexer's packets. On the wire a header, all little-endian,
///
///     0  4  length of the packet, header included
///     4  4  version: 1, property lists
///     8  4  message: 8, a property list
///     12 4  tag, echoed in the answer
///
/// and a property list as XML.
struct MuxHeader {
    static constexpr std::size_t size = 16;
    static constexpr std::uint32_t plistVersion = 1;
    static constexpr std::uint32_t plistMessage = 8;

    std::uint32_t length = 0;
    std::uint32_t version = plistVersion;
    std::uint32_t message = plistMessage;
    std::uint32_t tag = 0;

    /// No value for too few bytes and for a length below the header's own.
    [[nodiscard]] static std::optional<MuxHeader> decode(ByteView bytes);
};

[[nodiscard]] Bytes encodeMuxPacket(const QVariantMap& body, std::uint32_t tag);

} // namespace tessary
