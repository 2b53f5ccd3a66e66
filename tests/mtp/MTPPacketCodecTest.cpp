#include "mtp/protocol/MTPPacketCodec.h"
#include "support/MTPContainers.h"
#include "support/QtPrinters.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ctime>

namespace tessary {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Written by hand from the layouts, so that encoder and decoder cannot share a mistake.
const Bytes header = hexBytes("10000000 0300 0120 78563412");
const Bytes handles = hexBytes("03000000 01000000 FFFFFFFF 78563412");
const Bytes sdCard = hexBytes("0400 0200 0100 0000000800000000 FFFFFFFF01000000 40000000"
                              "08 'SD card' 0000 05 'A-12' 0000");
const Bytes photo = hexBytes("01000100 0138 0100 40420F00 0838 00100000 A0000000 78000000"
                             "A00F0000 B80B0000 18000000 07000000 0200 03000000 09000000"
                             "06 'a.jpg' 0000"
                             "10 '20240131T235958' 0000"
                             "12 '20240201T000102.5' 0000"
                             "04 'sun' 0000");

const std::pair<const char*, Bytes> vectors[] = {
    {"header", header}, {"handles", handles}, {"storage info", sdCard}, {"object info", photo}};

TEST(MTPHeader, isTwelveLittleEndianBytes) {
    const MTPContainerHeader response{16, MTPContainerType::response, 0x2001, 0x12345678};
    EXPECT_EQ(MTPPacketCodec::encodeHeader(response), header);
    EXPECT_EQ(MTPPacketCodec::decodeHeader(header), response);
}

TEST(MTPArrays, wholeArraysAreReadAndOthersAreEmpty) {
    EXPECT_THAT(MTPPacketCodec::decodeObjectHandles(handles),
                ElementsAre(1U, 0xFFFFFFFFU, 0x12345678U));
    EXPECT_THAT(MTPPacketCodec::decodeStorageIDs(hexBytes("01000000 01000100 AA")),
                ElementsAre(0x00010001U));
    const std::pair<const char*, const char*> rows[] = {
        {"count says 3, two are there", "03000000 01000000 02000000"},
        {"a byte is missing", "01000000 010000"},
        {"4 x count wraps to 0", "00000040 01000000"},
        {"largest count", "FFFFFFFF 01000000 02000000"},
    };
    for (const auto& [name, bytes] : rows) {
        EXPECT_THAT(MTPPacketCodec::decodeObjectHandles(hexBytes(bytes)), IsEmpty()) << name;
        EXPECT_THAT(MTPPacketCodec::decodeStorageIDs(hexBytes(bytes)), IsEmpty()) << name;
    }
}

TEST(MTPStrings, decodingTrustsNoLengthByte) {
    const struct {
        const char* name;
        const char* bytes;
        std::size_t at;
        std::optional<std::pair<QString, std::size_t>> expected;
    } rows[] = {
        {"empty", "00", 0, {{QString(), 1}}},
        {"at an offset", "FF 02 'a' 0000 FF", 1, {{QStringLiteral("a"), 5}}},
        {"terminator is not checked", "02 'a' FFFF", 0, {{QStringLiteral("a"), 5}}},
        {"NUL inside", "03 0000 'a' 0000", 0, {{QString(QChar(0)) + QLatin1Char('a'), 7}}},
        {"lone surrogate", "02 00D8 0000", 0, {{QString(QChar(0xD800)), 5}}},
        {"at the end", "02 'a' 0000", 5, std::nullopt},
        {"far beyond the end", "02 'a' 0000", ~std::size_t{0}, std::nullopt},
        {"one byte short", "02 'a' 00", 0, std::nullopt},
    };
    for (const auto& row : rows)
        EXPECT_EQ(MTPPacketCodec::decodeString(hexBytes(row.bytes), row.at), row.expected)
            << row.name;
}

TEST(MTPStorageDataset, fieldsStandWhereTheLayoutSays) {
    const MTPStorageInfo expected{0x00020001,
                                  4,
                                  2,
                                  1,
                                  0x08000000,
                                  0x1FFFFFFFF,
                                  64,
                                  QStringLiteral("SD card"),
                                  QStringLiteral("A-12")};
    EXPECT_EQ(MTPPacketCodec::decodeStorageInfo(sdCard, 0x00020001), expected);
    EXPECT_TRUE(expected.isRemovable());
}

TEST(MTPObjectDataset, fieldsStandWhereTheLayoutSays) {
    const auto info = MTPPacketCodec::decodeObjectInfo(photo, 42);
    ASSERT_TRUE(info);
    EXPECT_EQ(info->id, 42U);
    EXPECT_EQ(info->objectFormat, MTPObjectFormat::exifJpeg);
    EXPECT_EQ(info->effectiveSize(), 1'000'000U);
    EXPECT_EQ(info->parentObject, 7U);
    EXPECT_EQ(info->filename, QStringLiteral("a.jpg"));
    EXPECT_EQ(info->dateCreated, QDateTime(QDate(2024, 1, 31), QTime(23, 59, 58)));
    EXPECT_EQ(info->dateModified, QDateTime(QDate(2024, 2, 1), QTime(0, 1, 2, 500)));
    // All else stands in the same places when it is sent, without a date of creation.
    const Bytes upToTheName(photo.begin(), photo.begin() + 52 + 13);
    const Bytes modified = MTPPacketCodec::encodeString(QStringLiteral("20240201T000102"));
    EXPECT_EQ(MTPPacketCodec::encodeObjectInfo(*info),
              upToTheName + hexBytes("00") + modified + hexBytes("04 'sun' 0000"));
}

TEST(MTPTruncation, everyDecoderStandsEveryCut) {
    for (const auto& [name, whole] : vectors) {
        for (std::size_t size = 0; size <= whole.size(); ++size) {
            // A buffer of exactly that size: the address sanitizer sees a read past it.
            const Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
            EXPECT_EQ(MTPPacketCodec::decodeHeader(cut).has_value(), size >= 12) << name << size;
            EXPECT_EQ(MTPPacketCodec::decodeStorageInfo(cut, 1).has_value(), size >= 26)
                << name << size;
            EXPECT_EQ(MTPPacketCodec::decodeObjectInfo(cut, 1).has_value(), size >= 52)
                << name << size;
            const std::size_t most = size < 4 ? 0 : (size - 4) / 4;
            EXPECT_LE(MTPPacketCodec::decodeObjectHandles(cut).size(), most);
            EXPECT_LE(MTPPacketCodec::decodeStorageIDs(cut).size(), most);
            for (std::size_t at = 0; at <= size; ++at) {
                const auto text = MTPPacketCodec::decodeString(cut, at);
                EXPECT_LE(text ? at + text->second : 0, size);
            }
        }
    }
}

/// Makes a time zone the local one.
class MTPDate : public testing::Test {
protected:
    MTPDate() {
        qputenv("TZ", "Europe/Berlin");
        tzset();
    }
    ~MTPDate() override {
        qunsetenv("TZ");
        tzset();
    }

    /// The date in UTC, "none" without one.
    static std::string parse(const char* text) {
        const auto date = MTPPacketCodec::parseMTPDate(QString::fromUtf8(text));
        return date ? date->toUTC().toString(Qt::ISODateWithMs).toStdString() : "none";
    }
};

TEST_F(MTPDate, formsAreReadInLocalTimeUnlessTheyNameAZone) {
    const std::pair<const char*, const char*> rows[] = {
        {"20240131T235959", "2024-01-31T22:59:59.000Z"},
        {"20240131T235959.5", "2024-01-31T22:59:59.500Z"},
        {"20240131T235959.1239999", "2024-01-31T22:59:59.123Z"},
        {"2024-01-31T23:59:59", "2024-01-31T22:59:59.000Z"},
        {"2024-01-31 23:59:59", "2024-01-31T22:59:59.000Z"},
        {" \t20240131T235959\r\n", "2024-01-31T22:59:59.000Z"},
        {"19691231T235959", "1969-12-31T22:59:59.000Z"},
        {"2024-01-31T23:59:59+05:30", "2024-01-31T18:29:59.000Z"},
        {"20240131T235959-0800", "2024-02-01T07:59:59.000Z"},
        {"20240131T235959.0Z", "2024-01-31T23:59:59.000Z"},
        {"20240131T235959.5+0100", "2024-01-31T22:59:59.500Z"},
        {"2024-01-31T23:59:59.25-08:00", "2024-02-01T07:59:59.250Z"},
    };
    for (const auto& [text, utc] : rows)
        EXPECT_EQ(parse(text), utc) << text;
}

TEST_F(MTPDate, anythingElseIsNoDate) {
    for (const char* text :
         {"", "2024-01-31", "20240131T2359", "20240131T2359599", "20240131t235959",
          "20240230T000000", "00000000T000000", "20240131T240000", "20240131T235960",
          "20240131T235959.", "20240131T235959.-1", "20240131T235959.5.5", "20240131T 35959",
          "20240131T235959.5+01", "20240131T235959.5+9900", "20240131T235959.5+-100",
          "2024013\u0661T235959", "20240131T235959 x", "TTTTTTTTTTTTTTTTTTTT"})
        EXPECT_EQ(parse(text), "none") << text;
}

TEST_F(MTPDate, formattedDateIsLocalAndReadBack) {
    const QDateTime date(QDate(2024, 7, 31), QTime(21, 59, 59), Qt::UTC);
    EXPECT_EQ(MTPPacketCodec::formatMTPDate(date), QStringLiteral("20240731T235959"));
    QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt));
    EXPECT_EQ(MTPPacketCodec::formatMTPDate(date), QStringLiteral("20240731T235959"));
    QLocale::setDefault(QLocale::c());
}

} // namespace
} // namespace tessary
