#include "FuzzTarget.h"
#include "mtp/protocol/MTPPacketCodec.h"

using namespace tessary;

/// Headers and arrays.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const ByteView input = fuzzInput(data, size);
    const auto header = MTPPacketCodec::decodeHeader(input);
    require(header.has_value() == (size >= MTPContainerHeader::size));
    if (header && header->type != MTPContainerType::undefined) {
        const Bytes encoded = MTPPacketCodec::encodeHeader(*header);
        require(std::equal(encoded.begin(), encoded.end(), input.begin()));
    }
    const auto values = MTPPacketCodec::decodeArray(input);
    require(values.empty() || 4 + 4 * values.size() <= size);
    return 0;
}
