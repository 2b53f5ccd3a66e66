#pragma once

#include "base/values/Bytes.h"

#include <QStringList>

#include <array>
#include <cstdint>
#include <optional>

namespace tessary {

enum class AFCOperation : std::uint64_t {
    status = 0x01,
    data = 0x02,
    readDir = 0x03,
    truncate = 0x07,
    removePath = 0x08,
    makeDir = 0x09,
    getFileInfo = 0x0A,
    getDeviceInfo = 0x0B,
    fileOpen = 0x0D,
    fileOpenResult = 0x0E,
    fileRead = 0x0F,
    fileWrite = 0x10,
    fileSeek = 0x11,
    fileTell = 0x12,
    fileTellResult = 0x13,
    fileClose = 0x14,
    fileSetSize = 0x15,
    renamePath = 0x18,
    fileLock = 0x1B,
    setFileModTime = 0x1E,
    removePathAndContents = 0x22,
};

/// Numbers of AFC's statuses that a phone answers by itself.
namespace afc {
constexpr std::uint64_t success = 0;
constexpr std::uint64_t unknownError = 1;
constexpr std::uint64_t opHeaderInvalid = 2;
constexpr std::uint64_t readError = 4;
constexpr std::uint64_t writeError = 5;
constexpr std::uint64_t unknownPacketType = 6;
constexpr std::uint64_t invalidArg = 7;
constexpr std::uint64_t objectNotFound = 8;
constexpr std::uint64_t objectIsDir = 9;
constexpr std::uint64_t permDenied = 10;
constexpr std::uint64_t opNotSupported = 15;
constexpr std::uint64_t objectExists = 16;
constexpr std::uint64_t noSpaceLeft = 18;
constexpr std::uint64_t ioError = 20;
constexpr std::uint64_t dirNotEmpty = 33;
} // namespace afc

/// The head of an AFC packet. On the wire, all little-endian:
///
///     0   8  "CFA6LPAA"
///     8   8  length of the packet
///     16  8  length of its head and parameters; bulk data comes after them
///     24  8  packet number, echoed in the answer
///     32  8  operation
struct AFCHeader {
    static constexpr std::size_t size = 40;

    std::uint64_t packetLength = size;
    std::uint64_t headLength = size;
    std::uint64_t number = 0;
    std::uint64_t operation = 0; ///< raw
};

/// AFC's bytes. Pure.
class AFCCodec {
public:
    /// No value for a wrong magic and for lengths that contradict each other.
    [[nodiscard]] static std::optional<AFCHeader> decodeHeader(ByteView bytes);
    [[nodiscard]] static std::array<std::byte, AFCHeader::size>
    encodeHeader(const AFCHeader& header);

    /// A request as VirtualIPhoneLog names it: "afc.readDir"; of an unknown one its number.
    [[nodiscard]] static QString requestName(std::uint64_t operation);
};

} // namespace tessary
