#pragma once

#include "base/values/Bytes.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace tessary {

/// The command words: four ASCII letters as a little-endian u32.
enum class ADBCommand : std::uint32_t {
    cnxn = 0x4E584E43,
    auth = 0x48545541,
    open = 0x4E45504F,
    okay = 0x59414B4F,
    clse = 0x45534C43,
    wrte = 0x45545257,
    stls = 0x534C5453,
};

/// No value for any other word.
[[nodiscard]] std::optional<ADBCommand> adbCommandFromRawValue(std::uint32_t raw);

struct ADBConstants {
    static constexpr std::size_t headerSize = 24; ///< bytes
    static constexpr std::uint32_t versionV1 = 0x01000000;
    static constexpr std::uint32_t versionV2 = 0x01000001;
    static constexpr std::uint32_t maxPayloadV1 = 4096;    ///< bytes
    static constexpr std::uint32_t maxPayloadV2 = 1048576; ///< bytes
    static constexpr std::uint32_t authTypeToken = 1;
    static constexpr std::uint32_t authTypeSignature = 2;
    static constexpr std::uint32_t authTypeRSAPublicKey = 3;
    /// What the host says of itself in CNXN.
    static constexpr std::string_view defaultHostFeatures =
        "host::features=shell_v2,cmd,stat_v2,ls_v2,fixed_push_mkdir,sendrecv_v2,sendrecv_v2_lz4,"
        "sendrecv_v2_brotli";
};

/// One message of the ADB wire protocol. A value. On the wire, all integers little-endian:
///
///     0  u32 command     8  u32 arg1        16  u32 dataCheck (0: not computed)
///     4  u32 arg0       12  u32 dataLength  20  u32 magic = ~command
///     24 payload, dataLength bytes
struct ADBMessage {
    std::uint32_t command = 0;
    std::uint32_t arg0 = 0;
    std::uint32_t arg1 = 0;
    std::uint32_t dataLength = 0;
    std::uint32_t dataCheck = 0;
    std::uint32_t magic = 0;
    Bytes payload;

    ADBMessage() = default;
    /// A message to be sent. `dataCheck` is the sum of the payload's bytes, or 0 with
    /// `skipChecksum`. Fatal for a payload above the 32-bit range.
    ADBMessage(ADBCommand command, std::uint32_t arg0, std::uint32_t arg1, Bytes payload = {},
               bool skipChecksum = false);

    /// Header and payload as they are sent.
    [[nodiscard]] Bytes encode() const;
    /// The fields of the header at the front of `from`, with an empty payload. No value for fewer
    /// than 24 bytes or when the magic is wrong; the command may be an unknown one, and
    /// `dataLength` is whatever the other side claims.
    [[nodiscard]] static std::optional<ADBMessage> decodeHeader(ByteView from);

    /// Whether the payload has the sum that the header tells.
    [[nodiscard]] bool isIntact() const;

    bool operator==(const ADBMessage&) const = default;
};

} // namespace tessary
