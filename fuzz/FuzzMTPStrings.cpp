#include "FuzzTarget.h"
#include "mtp/protocol/MTPPacketCodec.h"

using namespace tessary;

/// The first byte is the offset, the rest the buffer.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    const std::size_t at = data[0];
    const ByteView input = fuzzInput(data + 1, size - 1);
    const auto decoded = MTPPacketCodec::decodeString(input, at);
    if (!decoded)
        return 0;
    const auto& [text, consumed] = *decoded;
    require(at + consumed <= input.size());
    // A lone terminator is the one other way to write the empty string.
    const Bytes encoded = MTPPacketCodec::encodeString(text);
    require(text.isEmpty() || encoded.size() == consumed);
    const auto again = MTPPacketCodec::decodeString(encoded, 0);
    require(again && again->first == text);
    return 0;
}
