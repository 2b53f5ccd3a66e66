#include "adb/protocol/ADBSyncRecords.h"

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

TEST(ADBSyncRecords, statsOfBothVersionsAreRead) {
    const Bytes old = bytesOf({'S', 'T', 'A', 'T', 0xED, 0x41, 0, 0, 4, 3, 2, 1, 1, 0, 0, 0x80});
    const ADBFacts folder{0, 0x41ED, 0x01020304, 0x80000001, true};
    expectRecord(&ADBSyncRecords::oldStat, old, std::optional(folder));
    EXPECT_TRUE(folder.isFolder());
    Bytes nothing = bytesOf({'S', 'T', 'A', 'T'});
    nothing.resize(ADBSyncRecords::oldStatSize);
    EXPECT_EQ(ADBSyncRecords::oldStat(nothing)->error, 2U) << "mode 0 is no entry";
    for (const auto word : {std::initializer_list<int>{'L', 'S', 'T', '2'},
                            std::initializer_list<int>{'S', 'T', 'A', '2'}})
        expectRecord(&ADBSyncRecords::newStat, newFacts(word), std::optional(newRecord));
    EXPECT_EQ(ADBSyncRecords::newStat(newFacts({'S', 'T', 'A', 'T'})), std::nullopt);
    EXPECT_EQ(ADBSyncRecords::oldStat(newFacts({'L', 'S', 'T', '2'})), std::nullopt);
}

TEST(ADBSyncRecords, entriesOfBothVersionsAndTheirEndsAreRead) {
    using Front = ADBSyncRecords::EntryFront;
    const Bytes old =
        bytesOf({'D', 'E', 'N', 'T', 0xB0, 0x81, 0, 0, 1, 0, 0, 0, 2, 0, 0, 0, 6, 0, 0, 0});
    expectRecord(&ADBSyncRecords::oldEntry, old,
                 std::optional(Front{{0, 0x81B0, 1, 2, true}, 6, false}));
    Bytes entry = newFacts({'D', 'N', 'T', '2'});
    const Bytes length = bytesOf({0xFF, 0xFF, 0xFF, 0xFF});
    entry.insert(entry.end(), length.begin(), length.end());
    expectRecord(&ADBSyncRecords::newEntry, entry,
                 std::optional(Front{newRecord, 0xFFFFFFFF, false}));
    Bytes done = bytesOf({'D', 'O', 'N', 'E'});
    done.resize(ADBSyncRecords::oldEntrySize);
    expectRecord(&ADBSyncRecords::oldEntry, done, std::optional(Front{{}, 0, true}));
    done.resize(ADBSyncRecords::newEntrySize);
    expectRecord(&ADBSyncRecords::newEntry, done, std::optional(Front{{}, 0, true}));
    EXPECT_EQ(ADBSyncRecords::newEntry(newFacts({'D', 'E', 'N', 'T'})), std::nullopt);
}

TEST(ADBSyncRecords, requestHoldsThePathInItsOwnBytes) {
    EXPECT_EQ(ADBSyncRecords::request(adbWordLIS2, "/\xFF"),
              bytesOf({'L', 'I', 'S', '2', 2, 0, 0, 0, '/', 0xFF}));
}

} // namespace

} // namespace tessary
