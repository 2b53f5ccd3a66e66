#include "FuzzTarget.h"
#include "adb/protocol/ADBMessage.h"
#include "adb/protocol/ADBSyncCodec.h"

#include <algorithm>

using namespace tessary;

namespace {

/// The entries of a listing, each with the name that follows it.
template <typename Decode>
void walk(ByteView input, std::size_t frontSize, Decode decode) {
    while (const auto front = decode(input)) {
        require(input.size() >= frontSize);
        if (front->isDone || front->nameLength > input.size() - frontSize)
            return;
        input = input.subspan(frontSize + front->nameLength);
    }
}

} // namespace

/// Message headers and the records of the file-sync service.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const ByteView input = fuzzInput(data, size);
    if (const auto message = ADBMessage::decodeHeader(input)) {
        require(message->magic == ~message->command && message->payload.empty());
        const Bytes encoded = message->encode();
        require(encoded.size() == ADBConstants::headerSize &&
                std::equal(encoded.begin(), encoded.end(), input.begin()));
    }
    (void)ADBSyncCodec::oldStat(input);
    (void)ADBSyncCodec::newStat(input);
    walk(input, ADBSyncCodec::oldEntrySize, &ADBSyncCodec::oldEntry);
    walk(input, ADBSyncCodec::newEntrySize, &ADBSyncCodec::newEntry);
    return 0;
}
