#include "core/ByteFormat.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QLocale>

#include <limits>

namespace tessary {
namespace {

TEST(ByteFormat, picksTheUnitAfterRounding) {
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    const struct {
        qint64 bytes;
        const char* text;
    } rows[] = {
        {0, "0 bytes"},
        {999, "999 bytes"},
        {1'000, "1 kB"},
        {1'499, "1 kB"},
        {1'500, "2 kB"},
        {999'499, "999 kB"},
        {999'500, "1.0 MB"},
        {1'250'000, "1.3 MB"},
        {999'949'999, "999.9 MB"},
        {999'950'000, "1.00 GB"},
        {999'994'999'999, "999.99 GB"},
        {999'995'000'000, "1.00 TB"},
        {999'995'000'000'000, "1.00 PB"},
        {999'995'000'000'000'000, "1.00 EB"},
        {std::numeric_limits<qint64>::max(), "9.22 EB"},
        {-1, "-1 bytes"},
        {-999'500, "-1.0 MB"},
        {std::numeric_limits<qint64>::min(), "-9.22 EB"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(formatBytes(row.bytes), QString::fromLatin1(row.text)) << row.bytes;
}

TEST(ByteFormat, followsTheDefaultLocale) {
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(formatBytes(1'250'000'000), QStringLiteral("1,25 GB"));
    EXPECT_EQ(formatBytes(12), QStringLiteral("12 Bytes"));
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_EQ(formatBytes(1'250'000'000), QStringLiteral("1.25 GB"));
}

} // namespace
} // namespace tessary
