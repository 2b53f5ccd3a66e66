#include "phone/NameRules.h"

#include <gmock/gmock.h>

namespace tessary {
namespace {

constexpr NameRules strict{}; // a Linux disk
constexpr NameRules fat{true, false, true, 255, 0};

TEST(NameRules, namesThatAFolderCannotHoldAreTold) {
    struct Row {
        QString name;
        bool disk;
        bool card;
    };
    const Row rows[] = {
        {QStringLiteral("a.txt"), true, true},
        {QString(), false, false},
        {QStringLiteral(".."), false, false},
        {QStringLiteral("a/b"), false, false},
        {QStringLiteral("1 10:20.txt"), true, false},
        {QStringLiteral("what?"), true, false},
        {QStringLiteral("line\nbreak"), true, false},
        {QStringLiteral("dot."), true, false},
        {QString(255, QLatin1Char('x')), true, true},
        {QString(256, QLatin1Char('x')), false, false},
        {QString(128, QChar(0xE4)), false, true}, // 256 bytes, 128 units
    };
    for (const Row& row : rows) {
        EXPECT_EQ(strict.accepts(row.name), row.disk) << row.name.toStdString();
        EXPECT_EQ(fat.accepts(row.name), row.card) << row.name.toStdString();
    }
}

} // namespace
} // namespace tessary
