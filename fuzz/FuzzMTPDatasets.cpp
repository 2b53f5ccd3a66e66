#include "FuzzTarget.h"
#include "mtp/protocol/MTPPacketCodec.h"

using namespace tessary;

/// Both datasets.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const ByteView input = fuzzInput(data, size);
    const auto storage = MTPPacketCodec::decodeStorageInfo(input, 1);
    require(storage.has_value() == (size >= 26));
    if (storage)
        require(!storage->storageDescription.isEmpty());
    auto object = MTPPacketCodec::decodeObjectInfo(input, 7);
    require(object.has_value() == (size >= 52));
    if (object) {
        object->dateModified = std::nullopt;
        const Bytes encoded = MTPPacketCodec::encodeObjectInfo(*object);
        require(MTPPacketCodec::decodeObjectInfo(encoded, 7) == object);
    }
    return 0;
}
