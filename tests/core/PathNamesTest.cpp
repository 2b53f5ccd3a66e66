#include "core/PathNames.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace tessary {
namespace {

TEST(PathNames, joinsAndTakesApart) {
    EXPECT_EQ(joinPath(QStringLiteral("/"), QStringLiteral("a")), QStringLiteral("/a"));
    EXPECT_EQ(joinPath(QStringLiteral("/a"), QStringLiteral("b")), QStringLiteral("/a/b"));
    EXPECT_EQ(joinPath(QStringLiteral("/a/"), QStringLiteral("b")), QStringLiteral("/a/b"));
    struct {
        const char* path;
        const char* parent;
        const char* last;
    } const rows[] = {{"/", "/", ""},        {"/a", "/", "a"},
                      {"/a/", "/", "a"},     {"/a/b.txt", "/a", "b.txt"},
                      {"/a/b//", "/a", "b"}, {"a", "/", "a"}};
    for (const auto& row : rows) {
        EXPECT_EQ(parentPath(QString::fromLatin1(row.path)), QString::fromLatin1(row.parent));
        EXPECT_EQ(lastComponent(QString::fromLatin1(row.path)), QString::fromLatin1(row.last));
    }
}

TEST(PathNames, onlyAPlainNameIsSafe) {
    for (const QString& name :
         {QString(), QStringLiteral("."), QStringLiteral(".."), QStringLiteral("a/b"),
          QStringLiteral("/"), QStringLiteral("../x"), QString(QChar::Null),
          QStringLiteral("a") + QChar::Null + QStringLiteral(".txt")})
        EXPECT_FALSE(isSafeName(name)) << testing::PrintToString(name);
    for (const QString& name :
         {QStringLiteral("..."), QStringLiteral(".hidden"), QStringLiteral(" "),
          QStringLiteral("a\\b"), QStringLiteral("a\nb"), QString(QChar(0xD800))})
        EXPECT_TRUE(isSafeName(name)) << testing::PrintToString(name);
}

} // namespace
} // namespace tessary
