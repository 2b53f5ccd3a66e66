#include "phone/NameRules.h"

#include <gmock/gmock.h>

#include <QSet>

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

TEST(NameRules, takenNamesAreNumberedAndStayShortEnough) {
    QSet<QString> taken;
    const auto give = [&](const NameRules& rules, const QString& name, bool isFolder = false) {
        const QString given = freeNameUnder(
            rules, name, isFolder, [&](const QString& key) { return taken.contains(key); });
        taken.insert(rules.key(given));
        return given;
    };
    EXPECT_EQ(give(fat, QStringLiteral("Foto.jpg")), QStringLiteral("Foto.jpg"));
    EXPECT_EQ(give(fat, QStringLiteral("foto.jpg")), QStringLiteral("foto (2).jpg"));
    EXPECT_EQ(give(fat, QStringLiteral("FOTO.JPG")), QStringLiteral("FOTO (3).JPG"));
    EXPECT_EQ(give(fat, QStringLiteral("a.b"), true), QStringLiteral("a.b"));
    EXPECT_EQ(give(fat, QStringLiteral("a.b"), true), QStringLiteral("a.b (2)"));
    EXPECT_EQ(give(fat, QStringLiteral("100%1.jpg")), QStringLiteral("100%1.jpg"));
    EXPECT_EQ(give(fat, QStringLiteral("100%1.jpg")), QStringLiteral("100%1 (2).jpg"));
    const QString longest(QString(251, QLatin1Char('x')) + QStringLiteral(".txt"));
    EXPECT_EQ(give(strict, longest), longest);
    const QString second = give(strict, longest);
    EXPECT_TRUE(second.endsWith(QStringLiteral("x (2).txt")));
    EXPECT_TRUE(strict.accepts(second));
}

} // namespace
} // namespace tessary
