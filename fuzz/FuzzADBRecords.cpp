#include "FuzzTarget.h"
#include "adb/protocol/ADBMessage.h"
#include "adb/protocol/ADBSyncCodec.h"

#include <algorithm>

using namespace tessary;

/// Message headers and the records of the file-sync service.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const ByteView input = fuzzInput(data, size);
    if (const auto message = ADBMessage::decodeHeader(input)) {
        require(message->isValidMagic() && message->payload.empty());
        const Bytes encoded = message->encode();
        require(encoded.size() == ADBConstants::headerSize &&
                std::equal(encoded.begin(), encoded.end(), input.begin()));
    }
    (void)ADBSyncCodec::parseStat(input);

    std::size_t at = 0;
    while (const auto record = ADBSyncCodec::parseDent(input.subspan(at))) {
        require(record->bytesRead >= 16 && record->bytesRead <= size - at);
        at += record->bytesRead;
        if (!record->entry)
            break;
        (void)record->entry->modifiedDate();
    }
    return 0;
}
