#include "adb/protocol/ADBSyncCodec.h"

#include "base/values/LittleEndian.h"

#include <bit>

namespace tessary {

namespace {

using enum ADBSyncCommand;
using Codec = ADBSyncCodec;

constexpr std::uint32_t notThere = 2; // ENOENT of Linux

std::uint32_t u32(ByteView bytes, std::size_t at) {
    return readLittleEndian<std::uint32_t>(bytes, at);
}

bool hasWord(ByteView bytes, ADBSyncCommand word) {
    return u32(bytes, 0) == static_cast<std::uint32_t>(word);
}

ADBFacts oldFacts(ByteView record) {
    ADBFacts facts;
    facts.mode = u32(record, 4);
    facts.size = u32(record, 8);
    facts.modified = u32(record, 12);
    facts.error = facts.mode == 0 ? notThere : 0;
    facts.isOld = true;
    return facts;
}

ADBFacts newFacts(ByteView record) {
    ADBFacts facts;
    facts.error = u32(record, 4);
    facts.mode = u32(record, 24);
    facts.size = readLittleEndian<std::uint64_t>(record, 40);
    facts.modified = std::bit_cast<std::int64_t>(readLittleEndian<std::uint64_t>(record, 56));
    return facts;
}

} // namespace

Bytes ADBSyncCodec::request(ADBSyncCommand command, const QByteArray& path) {
    Bytes bytes;
    bytes.reserve(2 * wordSize + static_cast<std::size_t>(path.size()));
    appendLittleEndian(bytes, static_cast<std::uint32_t>(command));
    appendLittleEndian(bytes, static_cast<std::uint32_t>(path.size()));
    const ByteView text = std::as_bytes(std::span(path));
    bytes.insert(bytes.end(), text.begin(), text.end());
    return bytes;
}

Bytes ADBSyncCodec::doneRecord(std::uint32_t modified) {
    Bytes bytes;
    appendLittleEndian(bytes, static_cast<std::uint32_t>(done));
    appendLittleEndian(bytes, modified);
    return bytes;
}

std::optional<ADBFacts> ADBSyncCodec::oldStat(ByteView record) {
    if (record.size() < oldStatSize || !hasWord(record, stat))
        return std::nullopt;
    return oldFacts(record);
}

std::optional<ADBFacts> ADBSyncCodec::newStat(ByteView record) {
    if (record.size() < newStatSize || !(hasWord(record, lst2) || hasWord(record, sta2)))
        return std::nullopt;
    return newFacts(record);
}

std::optional<Codec::EntryFront> ADBSyncCodec::oldEntry(ByteView record) {
    if (record.size() < oldEntrySize)
        return std::nullopt;
    if (hasWord(record, done))
        return EntryFront{{}, 0, true};
    if (!hasWord(record, dent))
        return std::nullopt;
    EntryFront front{oldFacts(record), u32(record, oldStatSize), false};
    front.facts.error = 0; // it is listed: it is there
    return front;
}

std::optional<Codec::EntryFront> ADBSyncCodec::newEntry(ByteView record) {
    if (record.size() < newEntrySize)
        return std::nullopt;
    if (hasWord(record, done))
        return EntryFront{{}, 0, true};
    if (!hasWord(record, dnt2))
        return std::nullopt;
    return EntryFront{newFacts(record), u32(record, newStatSize), false};
}

} // namespace tessary
