#include "mtp/protocol/MTPPacketCodec.h"
#include "support/MTPContainers.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <ctime>

namespace tessary {
namespace {

// Written by hand from the layouts, so that encoder and decoder cannot share a mistake.
const Bytes photo = hexBytes("01000100 0138 0100 40420F00 0838 00100000 A0000000 78000000"
                             "A00F0000 B80B0000 18000000 07000000 0200 03000000 09000000"
                             "06 'a.jpg' 0000"
                             "10 '20240131T235958' 0000"
                             "12 '20240201T000102.5' 0000"
                             "04 'sun' 0000");

TEST(MTPObjectDataset, fieldsStandWhereTheLayoutSays) {
    const auto info = MTPPacketCodec::decodeObjectInfo(photo, 42);
    ASSERT_TRUE(info);
    EXPECT_EQ(info->id, 42U);
    EXPECT_EQ(info->objectFormat, MTPObjectFormat{0x3801});
    EXPECT_EQ(info->effectiveSize(), 1'000'000U);
    EXPECT_EQ(info->parentObject, 7U);
    EXPECT_EQ(info->filename, QStringLiteral("a.jpg"));
    EXPECT_EQ(info->dateModified, QDateTime(QDate(2024, 2, 1), QTime(0, 1, 2, 500)));
    EXPECT_EQ(MTPPacketCodec::encodeObjectInfo(*info),
              hexBytes("01000100 0138 0000 40420F00 0000 00000000 00000000 00000000"
                       "00000000 00000000 00000000 07000000 0000 00000000 00000000"
                       "06 'a.jpg' 0000 00 10 '20240201T000102' 0000 00"));
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

TEST_F(MTPDate, isReadInLocalTimeUnlessItNamesAZone) {
    const std::pair<const char*, const char*> rows[] = {
        {"20240131T235959", "2024-01-31T22:59:59.000Z"},
        {"20240131T235959.1239999", "2024-01-31T22:59:59.123Z"},
        {"2024-01-31 23:59:59", "2024-01-31T22:59:59.000Z"},
        {" \t20240131T235959\r\n", "2024-01-31T22:59:59.000Z"},
        {"2024-01-31T23:59:59+05:30", "2024-01-31T18:29:59.000Z"},
        {"20240131T235959-0800", "2024-02-01T07:59:59.000Z"},
        {"20240131T235959.0Z", "2024-01-31T23:59:59.000Z"},
        {"2024-01-31T23:59:59.25-08:00", "2024-02-01T07:59:59.250Z"},
        {"20240230T000000", "none"},
        {"20240131T235960", "none"},
        {"20240131T235959.", "none"},
        {"20240131T235959.5+9900", "none"},
        {"2024013\u0661T235959", "none"},
        {"20240131T235959 x", "none"},
    };
    for (const auto& [text, utc] : rows)
        EXPECT_EQ(parse(text), utc) << text;
}

} // namespace
} // namespace tessary
