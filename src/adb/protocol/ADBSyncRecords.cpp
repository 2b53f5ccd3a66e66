#include "adb/protocol/ADBSyncRecords.h"

#include "base/values/LittleEndian.h"

#include <bit>

namespace tessary {

namespace {

using Records = ADBSyncRecords;

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

Bytes ADBSyncRecords::request(std::uint32_t word, const QByteArray& path) {
    Bytes bytes;
    bytes.reserve(2 * wordSize + static_cast<std::size_t>(path.size()));
    appendLittleEndian(bytes, word);
    appendLittleEndian(bytes, static_cast<std::uint32_t>(path.size()));
    const auto* data = reinterpret_cast<const std::byte*>(path.constData());
    bytes.insert(bytes.end(), data, data + path.size());
    return bytes;
}

std::optional<ADBFacts> ADBSyncRecords::oldStat(ByteView record) {
    if (record.size() < oldStatSize || !hasWord(record, ADBSyncCommand::stat))
        return std::nullopt;
    return oldFacts(record);
}

std::optional<ADBFacts> ADBSyncRecords::newStat(ByteView record) {
    if (record.size() < newStatSize ||
        !(hasWord(record, ADBSyncCommand::lst2) || hasWord(record, ADBSyncCommand::sta2)))
        return std::nullopt;
    return newFacts(record);
}

std::optional<Records::EntryFront> ADBSyncRecords::oldEntry(ByteView record) {
    if (record.size() < oldEntrySize)
        return std::nullopt;
    if (hasWord(record, ADBSyncCommand::done))
        return EntryFront{{}, 0, true};
    if (!hasWord(record, ADBSyncCommand::dent))
        return std::nullopt;
    EntryFront front{oldFacts(record), u32(record, oldStatSize), false};
    front.facts.error = 0; // it is listed: it is there
    return front;
}

std::optional<Records::EntryFront> ADBSyncRecords::newEntry(ByteView record) {
    if (record.size() < newEntrySize)
        return std::nullopt;
    if (hasWord(record, ADBSyncCommand::done))
        return EntryFront{{}, 0, true};
    if (u32(record, 0) != adbWordDNT2)
        return std::nullopt;
    return EntryFront{newFacts(record), u32(record, newStatSize), false};
}

} // namespace tessary
