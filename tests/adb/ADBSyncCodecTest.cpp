#include "adb/protocol/ADBSyncCodec.h"

#include <gtest/gtest.h>

namespace tessary {

namespace {

Bytes bytesOf(std::initializer_list<int> values) {
    Bytes bytes;
    for (const int value : values)
        bytes.push_back(static_cast<std::byte>(value));
    return bytes;
}

/// LST2 and the like: the word, error 0, device 1, inode 2, mode 0100660, one link, user and group,
/// five bytes more than 4 GiB, and three times, the middle one 0x0102030405.
Bytes newFacts(std::initializer_list<int> word) {
    Bytes bytes = bytesOf(word);
    const Bytes rest =
        bytesOf({0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0xB0, 0x81, 0,
                 0, 1, 0, 0, 0, 9, 0, 0, 0, 9, 0, 0, 0, 5, 0, 0, 0, 1, 0, 0, 0,    7,    7,
                 7, 7, 7, 7, 7, 7, 5, 4, 3, 2, 1, 0, 0, 0, 8, 8, 8, 8, 8, 8, 8,    8});
    bytes.insert(bytes.end(), rest.begin(), rest.end());
    return bytes;
}

constexpr ADBFacts newRecord{0, 0x81B0, 0x100000005, 0x0102030405, false};

/// `decode` takes the record whole and with more behind it, and no shorter one.
template <typename Decode, typename Value>
void expectRecord(Decode decode, Bytes record, const Value& value) {
    EXPECT_EQ(decode(ByteView(record)), value);
    for (std::size_t size = 0; size < record.size(); ++size)
        EXPECT_EQ(decode(ByteView(record).first(size)), std::nullopt) << size;
    record.push_back(std::byte{1});
    EXPECT_EQ(decode(ByteView(record)), value);
}

TEST(ADBSyncCodec, statsOfBothVersionsAreRead) {
    const Bytes old = bytesOf({'S', 'T', 'A', 'T', 0xED, 0x41, 0, 0, 4, 3, 2, 1, 1, 0, 0, 0x80});
    const ADBFacts folder{0, 0x41ED, 0x01020304, 0x80000001, true};
    expectRecord(&ADBSyncCodec::oldStat, old, std::optional(folder));
    EXPECT_TRUE(folder.isFolder());
    Bytes nothing = bytesOf({'S', 'T', 'A', 'T'});
    nothing.resize(ADBSyncCodec::oldStatSize);
    EXPECT_EQ(ADBSyncCodec::oldStat(nothing)->error, 2U) << "mode 0 is no entry";
    for (const auto word : {std::initializer_list<int>{'L', 'S', 'T', '2'},
                            std::initializer_list<int>{'S', 'T', 'A', '2'}})
        expectRecord(&ADBSyncCodec::newStat, newFacts(word), std::optional(newRecord));
    EXPECT_EQ(ADBSyncCodec::newStat(newFacts({'S', 'T', 'A', 'T'})), std::nullopt);
    EXPECT_EQ(ADBSyncCodec::oldStat(newFacts({'L', 'S', 'T', '2'})), std::nullopt);
}

TEST(ADBSyncCodec, entriesOfBothVersionsAndTheirEndsAreRead) {
    using Front = ADBSyncCodec::EntryFront;
    const Bytes old =
        bytesOf({'D', 'E', 'N', 'T', 0xB0, 0x81, 0, 0, 1, 0, 0, 0, 2, 0, 0, 0, 6, 0, 0, 0});
    expectRecord(&ADBSyncCodec::oldEntry, old,
                 std::optional(Front{{0, 0x81B0, 1, 2, true}, 6, false}));
    Bytes entry = newFacts({'D', 'N', 'T', '2'});
    const Bytes length = bytesOf({0xFF, 0xFF, 0xFF, 0xFF});
    entry.insert(entry.end(), length.begin(), length.end());
    expectRecord(&ADBSyncCodec::newEntry, entry,
                 std::optional(Front{newRecord, 0xFFFFFFFF, false}));
    Bytes done = bytesOf({'D', 'O', 'N', 'E'});
    done.resize(ADBSyncCodec::oldEntrySize);
    expectRecord(&ADBSyncCodec::oldEntry, done, std::optional(Front{{}, 0, true}));
    done.resize(ADBSyncCodec::newEntrySize);
    expectRecord(&ADBSyncCodec::newEntry, done, std::optional(Front{{}, 0, true}));
    EXPECT_EQ(ADBSyncCodec::newEntry(newFacts({'D', 'E', 'N', 'T'})), std::nullopt);
}

TEST(ADBSyncCodec, requestHoldsThePathInItsOwnBytes) {
    EXPECT_EQ(ADBSyncCodec::request(ADBSyncCommand::lis2, "/\xFF"),
              bytesOf({'L', 'I', 'S', '2', 2, 0, 0, 0, '/', 0xFF}));
}

} // namespace

} // namespace tessary
