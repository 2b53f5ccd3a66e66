#include "adb/protocol/ADBMessage.h"
#include "adb/AsciiBytes.h"

#include <gtest/gtest.h>

namespace tessary {

namespace {

const Bytes openWire =
    bytesOf("OPEN\x07\0\0\0\0\0\0\0\x06\0\0\0\xF7\x01\0\0\xB0\xAF\xBA\xB1sync:\0"sv);

TEST(ADBMessageTest, messageIsLaidOutAsOnTheWire) {
    const ADBMessage open(ADBCommand::open, 7, 0, bytesOf("sync:\0"sv));
    EXPECT_EQ(open.encode(), openWire);

    const ADBMessage okay(ADBCommand::okay, 0x01020304, 0x0A0B0C0D);
    EXPECT_EQ(okay.encode(), bytesOf("OKAY\x04\x03\x02\x01\x0D\x0C\x0B\x0A\0\0\0\0\0\0\0\0"
                                     "\xB0\xB4\xBE\xA6"sv));
}

TEST(ADBMessageTest, checksumIsTheSumOfUnsignedBytesOrLeftOut) {
    const Bytes payload = bytesOf("\xFF\xFF\x01"sv);
    EXPECT_EQ(ADBMessage(ADBCommand::wrte, 1, 2, payload).dataCheck, 0x1FFu);
    const ADBMessage unchecked(ADBCommand::wrte, 1, 2, payload, true);
    EXPECT_EQ(unchecked.dataCheck, 0u);
    EXPECT_EQ(unchecked.dataLength, 3u);

    const ADBMessage hello(ADBCommand::cnxn, ADBConstants::versionV2, ADBConstants::maxPayloadV2,
                           bytesOf(ADBConstants::defaultHostFeatures));
    EXPECT_EQ(hello.dataLength, ADBConstants::defaultHostFeatures.size());
    EXPECT_EQ(hello.dataCheck, 10282u);
}

TEST(ADBMessageTest, headerIsReadBackWithoutItsPayload) {
    const auto header = ADBMessage::decodeHeader(openWire);
    ASSERT_TRUE(header);
    EXPECT_EQ(*header, ADBMessage(0x4E45504F, 7, 0, 6, 0x1F7, 0xB1BAAFB0, {}));
    EXPECT_EQ(adbCommandFromRawValue(header->command), ADBCommand::open);
}

TEST(ADBMessageTest, truncatedHeaderOrWrongMagicIsNoMessage) {
    for (std::size_t length = 0; length < ADBConstants::headerSize; ++length)
        EXPECT_FALSE(ADBMessage::decodeHeader(ByteView(openWire).first(length))) << length;
    for (std::size_t bit = 0; bit < 32; ++bit) {
        Bytes spoilt = openWire;
        spoilt[20 + bit / 8] ^= std::byte{1} << (bit % 8);
        EXPECT_FALSE(ADBMessage::decodeHeader(spoilt)) << bit;
    }
}

} // namespace

} // namespace tessary
