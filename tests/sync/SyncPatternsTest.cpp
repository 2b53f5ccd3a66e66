#include "sync/pair/SyncPatterns.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

TEST(SyncPatternsTest, rulesOfGitignore) {
    // Lines, separated by "|"; what they leave out and what they do not. A "/" at the end of a path
    // says that it is a folder.
    struct Row {
        const char* lines;
        const char* excluded;
        const char* kept;
    };
    const Row rows[] = {
        {"*.tmp", "a.tmp d/a.tmp d/e/.tmp d.tmp/", "a.tmpx a.TMP tmp"},
        {"build/", "build/ d/build/", "build d/build"},
        {"/only", "only only/", "d/only"},
        {"d/x", "d/x", "e/d/x x"},
        {"**/x", "x d/x d/e/x", "xx d/xx"},
        {"d/**", "d/a d/e/a", "d/ e/d/a"},
        {"d/**/x", "d/x d/e/x d/e/f/x", "x e/d/x d/xx"},
        {"a?c", "abc", "ac a/c abbc"},
        {"[a-c]x[!0-9]", "axb cx_", "dxb ax1 x"},
        {"[]]", "]", "[ a"},
        {"[ab", "[ab", "a"},
        {"*.jpg|!keep.jpg", "a.jpg d/b.jpg", "keep.jpg d/keep.jpg"},
        {"!a|a", "a", "b"},
        {"# a|\\#b|\\!c", "#b !c", "a b c #"},
        {"a   |b\\ ", "a b\\_", "a___ b"},
        {"\\*", "*", "a"},
        {"a*b*c", "abc aXbXc abbcc", "acb"},
        {"/|//|", "", "a d/"},
        {"a**c", "abc ac", "a/c"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.lines);
        const SyncPatterns patterns(QString::fromUtf8(row.lines).split(u'|'));
        const auto excludes = [&](QString path) {
            path.replace(u"\\_"_s, u" "_s).replace(u'_', u' ');
            const bool isFolder = path.endsWith(u'/');
            return patterns.excludes(isFolder ? path.chopped(1) : path, isFolder);
        };
        for (const QString& path : QString::fromUtf8(row.excluded).split(u' ', Qt::SkipEmptyParts))
            EXPECT_TRUE(excludes(path)) << qPrintable(path);
        for (const QString& path : QString::fromUtf8(row.kept).split(u' ', Qt::SkipEmptyParts))
            EXPECT_FALSE(excludes(path)) << qPrintable(path);
    }
}

TEST(SyncPatternsTest, hostilePatternTakesNoTime) {
    const SyncPatterns patterns(
        {QString(u"*a"_s).repeated(200) + u"b"_s, QString(u"**/a/"_s).repeated(100) + u"b"_s});
    EXPECT_FALSE(patterns.excludes(QString(5000, u'a'), false));
    EXPECT_FALSE(patterns.excludes(QString(u"a/"_s).repeated(500) + u"a"_s, false));
}

} // namespace
} // namespace tessary
