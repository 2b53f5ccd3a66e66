#include "base/local/LocalTree.h"
#include "base/values/TessaryError.h"
#include "support/OrdinaryUser.h"
#include "support/QtPrinters.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace tessary {
namespace {

QStringList paths(const LocalTree& tree) {
    QStringList all;
    for (const LocalEntry& entry : tree.entries)
        all.append(entry.relativePath + (entry.isDirectory ? QStringLiteral("/") : QString()));
    return all;
}

QStringList skippedPaths(const LocalTree& tree) {
    QStringList all;
    for (const SkippedItem& item : tree.skipped)
        all.append(item.path);
    all.sort();
    return all;
}

TEST(LocalTree, foldersComeBeforeTheirContentsAndTotalsAreTrue) {
    const TemporaryFolder folder;
    folder.write(QStringLiteral("b/two.txt"), "22");
    folder.write(QStringLiteral("b-side.txt"), "333");
    folder.write(QStringLiteral("b/.hidden"), "1");
    folder.write(QStringLiteral("a/deep/er/one.txt"), "4444");
    folder.makeFolder(QStringLiteral("empty"));

    const LocalTree tree = collectLocalFiles(folder.path());

    EXPECT_EQ(paths(tree).join(QLatin1Char(' ')),
              QStringLiteral("a/ a/deep/ a/deep/er/ a/deep/er/one.txt b/ b-side.txt b/.hidden "
                             "b/two.txt empty/"));
    EXPECT_TRUE(tree.skipped.empty());
    EXPECT_EQ(tree.fileCount, 4);
    EXPECT_EQ(tree.byteCount, 10);
    const LocalDirectoryStats stats = calculateLocalDirectoryStats(folder.path());
    EXPECT_EQ(stats.totalFiles, 4);
    EXPECT_EQ(stats.totalBytes, 10);
}

TEST(LocalTree, linksToFilesCountAndEverythingOddIsSkippedByName) {
    const TemporaryFolder folder;
    const TemporaryFolder elsewhere;
    elsewhere.write(QStringLiteral("secret"), "12345");
    folder.write(QStringLiteral("plain"), "1");
    QFile::link(elsewhere.path(QStringLiteral("secret")), folder.path(QStringLiteral("linked")));
    QFile::link(elsewhere.path(), folder.path(QStringLiteral("linkedFolder")));
    QFile::link(QStringLiteral("."), folder.path(QStringLiteral("loop")));
    QFile::link(elsewhere.path(QStringLiteral("gone")), folder.path(QStringLiteral("dangling")));
    ASSERT_EQ(mkfifo(qPrintable(folder.path(QStringLiteral("pipe"))), 0600), 0);

    const LocalTree tree = collectLocalFiles(folder.path());

    EXPECT_EQ(paths(tree), (QStringList{QStringLiteral("linked"), QStringLiteral("plain")}));
    EXPECT_EQ(tree.byteCount, 6);
    EXPECT_EQ(skippedPaths(tree),
              (QStringList{QStringLiteral("dangling"), QStringLiteral("linkedFolder"),
                           QStringLiteral("loop"), QStringLiteral("pipe")}));
}

TEST(LocalTree, folderThatCannotBeReadIsAnErrorAtTheTopAndSkippedBelow) {
    const TemporaryFolder folder;
    folder.write(QStringLiteral("top/locked/file"), "x");
    folder.write(QStringLiteral("top/open"), "x");
    QFile::setPermissions(folder.path(), QFile::Permissions(0x7777));
    QFile::setPermissions(folder.path(QStringLiteral("top/locked")), QFile::Permissions());
    {
        const OrdinaryUser user;
        const LocalTree tree = collectLocalFiles(folder.path(QStringLiteral("top")));
        EXPECT_EQ(skippedPaths(tree), QStringList(QStringLiteral("locked")));
        EXPECT_EQ(tree.fileCount, 1);
        for (const char* top : {"top/locked", "top/open", "missing"}) {
            const QString path = folder.path(QString::fromLatin1(top));
            try {
                (void)collectLocalFiles(path);
                ADD_FAILURE() << top;
            } catch (const TessaryError& error) {
                EXPECT_EQ(error.message(), QStringLiteral("Cannot enumerate ") + path);
            }
        }
    }
    QFile::setPermissions(folder.path(QStringLiteral("top/locked")), QFile::Permissions(0x7777));
    EXPECT_EQ(calculateLocalDirectoryStats(folder.path(QStringLiteral("missing"))).totalFiles, 0);
}

} // namespace
} // namespace tessary
