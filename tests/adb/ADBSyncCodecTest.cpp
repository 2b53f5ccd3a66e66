#include "adb/protocol/ADBSyncCodec.h"
#include "adb/AsciiBytes.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace tessary {

namespace {

const Bytes camera = bytesOf("DENT\xF9\x41\0\0\x00\x10\0\0\x80\x51\x01\x00\x06\0\0\0Camera"sv);
const Bytes statWire = bytesOf("STAT\xA4\x81\0\0\x01\x02\x03\x04\x05\0\0\0"sv);

TEST(ADBSyncCodecTest, requestsAreWordLengthAndPath) {
    EXPECT_EQ(ADBSyncCodec::buildSyncCommand(ADBSyncCommand::stat, QStringLiteral("/sdcard")),
              bytesOf("STAT\x07\0\0\0/sdcard"sv));
    EXPECT_EQ(ADBSyncCodec::buildSyncCommand(ADBSyncCommand::send, QStringLiteral("/ä,33188")),
              bytesOf("SEND\x09\0\0\0/\xC3\xA4,33188"sv));
    EXPECT_EQ(ADBSyncCodec::buildSyncCommand(ADBSyncCommand::quit, {}), bytesOf("QUIT\0\0\0\0"sv));
    EXPECT_EQ(ADBSyncCodec::buildSyncCommand(ADBSyncCommand::list, QString(QChar(0xD800))),
              bytesOf("LIST\0\0\0\0"sv));
}

TEST(ADBSyncCodecTest, dataAndDoneAreLaidOutAsOnTheWire) {
    EXPECT_EQ(ADBSyncCodec::buildDataChunk(bytesOf("a\0b"sv)), bytesOf("DATA\x03\0\0\0a\0b"sv));
    EXPECT_EQ(ADBSyncCodec::buildDataChunk({}), bytesOf("DATA\0\0\0\0"sv));
    EXPECT_EQ(ADBSyncCodec::buildDone(0x01020304), bytesOf("DONE\x04\x03\x02\x01"sv));
}

TEST(ADBSyncCodecTest, statIsReadOnlyWhenItIsWholeAndOne) {
    EXPECT_EQ(ADBSyncCodec::parseStat(statWire), (ADBStatResult{0x81A4, 0x04030201, 5}));
    for (std::size_t length = 0; length < statWire.size(); ++length)
        EXPECT_FALSE(ADBSyncCodec::parseStat(ByteView(statWire).first(length))) << length;
    EXPECT_FALSE(ADBSyncCodec::parseStat(bytesOf("FAIL\0\0\0\0\0\0\0\0\0\0\0\0"sv)));
}

TEST(ADBSyncCodecTest, entryIsReadWithTheBytesItTook) {
    Bytes more = camera;
    more.push_back(std::byte{'D'});
    const auto record = ADBSyncCodec::parseDent(more);
    ASSERT_TRUE(record && record->entry);
    EXPECT_EQ(record->bytesRead, 26u);
    EXPECT_EQ(*record->entry, (ADBDentEntry{0x41F9, 4096, 86400, QStringLiteral("Camera")}));
    EXPECT_TRUE(record->entry->isDirectory());
    EXPECT_EQ(record->entry->id(), QStringLiteral("Camera"));
    EXPECT_EQ(record->entry->modifiedDate(),
              QDateTime::fromString(QStringLiteral("1970-01-02T00:00:00Z"), Qt::ISODate));
}

TEST(ADBSyncCodecTest, nameKeepsItsByteOrderMarkAndMarksWhatIsNoText) {
    const auto record =
        ADBSyncCodec::parseDent(bytesOf("DENT\xA4\x81\0\0\0\0\0\0\0\0\0\0\x06\0\0\0\xEF\xBB\xBF"
                                        "a\xC3!"sv));
    ASSERT_TRUE(record && record->entry);
    EXPECT_EQ(record->entry->name, QStringLiteral("\uFEFFa\uFFFD!"));
}

TEST(ADBSyncCodecTest, truncatedEntryWaitsForMoreBytes) {
    for (std::size_t length = 0; length < camera.size(); ++length)
        EXPECT_FALSE(ADBSyncCodec::parseDent(ByteView(camera).first(length))) << length;
    EXPECT_FALSE(
        ADBSyncCodec::parseDent(bytesOf("DENT\0\0\0\0\0\0\0\0\0\0\0\0\xFF\xFF\xFF\xFFname"sv)));
}

TEST(ADBSyncCodecTest, doneEndsAListingAndCountsSixteenBytes) {
    const Bytes end = bytesOf("DONE\0\0\0\0\0\0\0\0\0\0\0\0"sv);
    EXPECT_EQ(ADBSyncCodec::parseDent(end), (ADBDentRecord{std::nullopt, 16}));
    for (std::size_t length = 0; length < end.size(); ++length)
        EXPECT_FALSE(ADBSyncCodec::parseDent(ByteView(end).first(length))) << length;
    EXPECT_FALSE(ADBSyncCodec::parseDent(bytesOf("STAT\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"sv)));
}

} // namespace

} // namespace tessary
