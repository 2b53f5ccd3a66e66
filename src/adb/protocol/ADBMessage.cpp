#include "adb/protocol/ADBMessage.h"

#include "base/values/LittleEndian.h"

#include <QtGlobal>

#include <array>
#include <limits>
#include <numeric>
#include <utility>

namespace tessary {

namespace {

constexpr std::array commands{ADBCommand::cnxn, ADBCommand::auth, ADBCommand::open,
                              ADBCommand::okay, ADBCommand::clse, ADBCommand::wrte,
                              ADBCommand::stls};

std::uint32_t byteSum(ByteView bytes) {
    return std::accumulate(
        bytes.begin(), bytes.end(), std::uint32_t{0},
        [](std::uint32_t sum, std::byte one) { return sum + std::to_integer<std::uint32_t>(one); });
}

} // namespace

std::optional<ADBCommand> adbCommandFromRawValue(std::uint32_t raw) {
    for (const ADBCommand command : commands)
        if (static_cast<std::uint32_t>(command) == raw)
            return command;
    return std::nullopt;
}

ADBMessage::ADBMessage(ADBCommand word, std::uint32_t first, std::uint32_t second, Bytes body,
                       bool skipChecksum)
    : command(static_cast<std::uint32_t>(word)),
      arg0(first),
      arg1(second),
      magic(~static_cast<std::uint32_t>(word)),
      payload(std::move(body)) {
    if (payload.size() > std::numeric_limits<std::uint32_t>::max())
        qFatal("an ADB payload above the 32-bit range");
    dataLength = static_cast<std::uint32_t>(payload.size());
    dataCheck = skipChecksum ? 0 : byteSum(payload);
}

Bytes ADBMessage::encode() const {
    Bytes bytes;
    bytes.reserve(ADBConstants::headerSize + payload.size());
    for (const std::uint32_t field : {command, arg0, arg1, dataLength, dataCheck, magic})
        appendLittleEndian(bytes, field);
    bytes.insert(bytes.end(), payload.begin(), payload.end());
    return bytes;
}

bool ADBMessage::isIntact() const {
    return dataCheck == byteSum(payload);
}

std::optional<ADBMessage> ADBMessage::decodeHeader(ByteView from) {
    if (from.size() < ADBConstants::headerSize)
        return std::nullopt;
    ADBMessage message;
    std::size_t at = 0;
    for (auto* field : {&message.command, &message.arg0, &message.arg1, &message.dataLength,
                        &message.dataCheck, &message.magic}) {
        *field = readLittleEndian<std::uint32_t>(from, at);
        at += sizeof *field;
    }
    return message.magic == ~message.command ? std::optional(std::move(message)) : std::nullopt;
}

} // namespace tessary
