#include "mtp/MTPPacketCodec.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <ctime>

namespace tessary {
namespace {

/// Makes a time zone the local one.
class MTPDate : public testing::Test {
protected:
    MTPDate() {
        setZone("Europe/Berlin");
    }
    ~MTPDate() override {
        qunsetenv("TZ");
        tzset();
    }

    static void setZone(const char* zone) {
        qputenv("TZ", zone);
        tzset();
    }

    /// The date in UTC, "none" without one.
    static std::string parse(const char* text) {
        const auto date = MTPPacketCodec::parseMTPDate(QString::fromUtf8(text));
        return date ? date->toUTC().toString(Qt::ISODateWithMs).toStdString() : "none";
    }
};

TEST_F(MTPDate, everyFormIsReadInLocalTime) {
    const std::pair<const char*, const char*> rows[] = {
        {"20240131T235959", "2024-01-31T22:59:59.000Z"},
        {"20240731T235959", "2024-07-31T21:59:59.000Z"},
        {"20240131T235959.5", "2024-01-31T22:59:59.500Z"},
        {"20240131T235959.05", "2024-01-31T22:59:59.050Z"},
        {"20240131T235959.1239999", "2024-01-31T22:59:59.123Z"},
        {"2024-01-31T23:59:59", "2024-01-31T22:59:59.000Z"},
        {"2024-01-31T23:59:59.0", "2024-01-31T22:59:59.000Z"},
        {"2024-01-31 23:59:59", "2024-01-31T22:59:59.000Z"},
        {" \t20240131T235959\r\n", "2024-01-31T22:59:59.000Z"},
        {"20240229T000000", "2024-02-28T23:00:00.000Z"},
        {"19691231T235959", "1969-12-31T22:59:59.000Z"},
    };
    for (const auto& [text, utc] : rows)
        EXPECT_EQ(parse(text), utc) << text;
}

TEST_F(MTPDate, timeZoneInTheTextWins) {
    const std::pair<const char*, const char*> rows[] = {
        {"2024-01-31T23:59:59Z", "2024-01-31T23:59:59.000Z"},
        {"2024-01-31T23:59:59+05:30", "2024-01-31T18:29:59.000Z"},
        {"20240131T235959Z", "2024-01-31T23:59:59.000Z"},
        {"20240131T235959-0800", "2024-02-01T07:59:59.000Z"},
    };
    for (const auto& [text, utc] : rows)
        EXPECT_EQ(parse(text), utc) << text;
}

TEST_F(MTPDate, anythingElseIsNoDate) {
    for (const char* text : {"",
                             "  ",
                             "31/01/2024",
                             "2024-01-31",
                             "20240131",
                             "20240131T2359",
                             "20240131T23595",
                             "20240131T2359599",
                             "20240131t235959",
                             "20241301T000000",
                             "20240230T000000",
                             "20230229T000000",
                             "00000000T000000",
                             "20240131T240000",
                             "20240131T236000",
                             "20240131T235960",
                             "20240131T235959.",
                             "20240131T235959.x",
                             "20240131T235959.-1",
                             "20240131T235959.5Z",
                             "20240131T235959.5.5",
                             "2024-01-31 23:59:59.5",
                             "2024-01-31  3:59:59",
                             "+0240131T235959",
                             "20240131T 35959",
                             "2024013\u0661T235959",
                             "20240131T235959 x",
                             "2024-01-31T235959",
                             "20240131T23:59:59",
                             "TTTTTTTTTTTTTTTTTTTT",
                             "........T.......Z"})
        EXPECT_EQ(parse(text), "none") << text;
}

TEST_F(MTPDate, clockChangesLoseNoDate) {
    // 02:30 does not exist on this day: a clock not yet put forward shows it at 03:30.
    EXPECT_EQ(parse("20240331T023000"), "2024-03-31T01:30:00.000Z");
    EXPECT_EQ(parse("20240331T015959"), "2024-03-31T00:59:59.000Z");
    EXPECT_EQ(parse("20240331T030000"), "2024-03-31T01:00:00.000Z");
    // 02:30 exists twice.
    const std::string twice = parse("20241027T023000");
    EXPECT_TRUE(twice == "2024-10-27T00:30:00.000Z" || twice == "2024-10-27T01:30:00.000Z");
}

TEST_F(MTPDate, localZoneIsTheOneInForce) {
    setZone("Asia/Kolkata");
    EXPECT_EQ(parse("20240131T235959"), "2024-01-31T18:29:59.000Z");
    setZone("UTC");
    EXPECT_EQ(parse("20240331T023000"), "2024-03-31T02:30:00.000Z");
}

TEST_F(MTPDate, formattedDateIsLocalAndReadBack) {
    const QDateTime date(QDate(2024, 7, 31), QTime(21, 59, 59), Qt::UTC);
    EXPECT_EQ(MTPPacketCodec::formatMTPDate(date), QStringLiteral("20240731T235959"));
    EXPECT_EQ(MTPPacketCodec::parseMTPDate(MTPPacketCodec::formatMTPDate(date)), date);
    QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt));
    EXPECT_EQ(MTPPacketCodec::formatMTPDate(date), QStringLiteral("20240731T235959"));
    QLocale::setDefault(QLocale::c());
}

} // namespace
} // namespace tessary
