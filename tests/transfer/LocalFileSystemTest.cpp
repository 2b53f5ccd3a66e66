#include "transfer/local/LocalFileSystem.h"

#include "base/text/PathNames.h"
#include "support/FileBytes.h"
#include "support/QtPrinters.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <map>

namespace tessary {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::UnorderedElementsAre;

class LocalFileSystemTest : public testing::Test {
protected:
    LocalFileSystemTest() {
        disk.makeFolder(QStringLiteral("base"));
    }
    [[nodiscard]] QString at(const QString& name) const {
        return disk.path(QStringLiteral("base/") + name);
    }
    void link(const QString& target, const QString& name) const {
        ASSERT_EQ(::symlink(target.toUtf8().constData(), at(name).toUtf8().constData()), 0);
    }
    [[nodiscard]] FileItem item(const QString& name) {
        return require(files, at(name), {});
    }
    FileItem write(const QString& folder, const QString& name, const QByteArray& content,
                   std::optional<QDateTime> date = {}) {
        return files.write({folder, name, content.size(), std::move(date)}, sourceOf(content), {},
                           {});
    }
    [[nodiscard]] QByteArray read(const FileItem& file, ByteRange range = {}) {
        return readBytes(files, file, range);
    }

    const TemporaryFolder disk;
    LocalFileSystem files{disk.path(QStringLiteral("base"))};
};

std::optional<ErrorCode> codeOf(const std::function<void()>& work) {
    try {
        work();
    } catch (const Error& error) {
        return error.code();
    }
    return std::nullopt;
}

TEST_F(LocalFileSystemTest, whatIsNoEntryIsReportedAndNeverLeftOut) {
    disk.write(QStringLiteral("elsewhere/secret.txt"), "s");
    disk.write(QStringLiteral("base/inside.txt"), "i");
    link(disk.path(QStringLiteral("elsewhere")), QStringLiteral("folder link"));
    link(disk.path(QStringLiteral("elsewhere/secret.txt")), QStringLiteral("out"));
    link(QStringLiteral("inside.txt"), QStringLiteral("in"));
    link(QStringLiteral("nowhere"), QStringLiteral("dangling"));
    ASSERT_EQ(::mkfifo(at(QStringLiteral("pipe")).toUtf8().constData(), 0600), 0);
    const QByteArray latin = at(QString()).toUtf8() + "caf\xe9.txt";
    ASSERT_EQ(::close(::creat(latin.constData(), 0600)), 0);

    const auto reported = [](PhoneFileSystem& system, const QString& folder) {
        std::map<std::string, QByteArray> found;
        for (const UnreadableEntry& entry : listAll(system, folder, {}).unreadable)
            found[lastComponent(entry.path).toStdString()] = entry.error.code().name();
        return found;
    };
    EXPECT_THAT(reported(files, files.folder()),
                UnorderedElementsAre(Pair("folder link", "link"), Pair("out", "link"),
                                     Pair("in", "link"), Pair("dangling", "link"),
                                     Pair("pipe", "notAFile"),
                                     Pair("caf\xef\xbf\xbd.txt", "nameNotUsable")));
    LocalFileSystem following(files.folder(), LocalLinks::filesFollowed);
    EXPECT_THAT(reported(following, files.folder()),
                UnorderedElementsAre(Pair("folder link", "link"), Pair("out", "leavesFolder"),
                                     Pair("dangling", "link"), Pair("pipe", "notAFile"),
                                     Pair("caf\xef\xbf\xbd.txt", "nameNotUsable")));
    EXPECT_EQ(require(following, at(QStringLiteral("in")), {}).size, 1);
    EXPECT_EQ(::unlink(latin.constData()), 0); // nothing of Qt could
}

TEST_F(LocalFileSystemTest, nothingLeavesTheFolder) {
    disk.write(QStringLiteral("elsewhere/secret.txt"), "s");
    link(disk.path(QStringLiteral("elsewhere")), QStringLiteral("link"));
    const FileItem file = write(files.folder(), QStringLiteral("mine"), "m");
    FileItem through(QStringLiteral("secret.txt"), at(QStringLiteral("link/secret.txt")), false, 1,
                     {});
    const QString outside = disk.path(QStringLiteral("elsewhere"));
    const struct {
        const char* name;
        std::function<void()> work;
        LocalError code;
    } rows[] = {
        {"write through a link",
         [&] { write(at(QStringLiteral("link")), QStringLiteral("new"), "n"); }, LocalError::link},
        {"folder through a link",
         [&] { files.makeFolder(at(QStringLiteral("link")), QStringLiteral("new"), {}); },
         LocalError::link},
        {"read through a link", [&] { (void)read(through); }, LocalError::link},
        {"remove through a link", [&] { files.remove(through, {}); }, LocalError::link},
        {"remove a tree through a link", [&] { files.removeTree(through, {}); }, LocalError::link},
        {"rename through a link",
         [&] { files.rename(through, QStringLiteral("x"), TakenName::refused, {}); },
         LocalError::link},
        {"move through a link", [&] { files.move(file, at(QStringLiteral("link")), {}); },
         LocalError::link},
        {"list a link", [&] { (void)listAll(files, at(QStringLiteral("link")), {}); },
         LocalError::link},
        {"write elsewhere", [&] { write(outside, QStringLiteral("new"), "n"); },
         LocalError::leavesFolder},
        {"write above",
         [&] { write(at(QStringLiteral("../elsewhere")), QStringLiteral("new"), "n"); },
         LocalError::leavesFolder},
    };
    for (const auto& row : rows)
        EXPECT_EQ(codeOf(row.work), ErrorCode(row.code)) << row.name;
    EXPECT_THAT(disk.names(QStringLiteral("elsewhere")), ElementsAre(QStringLiteral("secret.txt")));
    EXPECT_THAT(disk.names(), ElementsAre(QStringLiteral("base"), QStringLiteral("elsewhere")));
}

TEST_F(LocalFileSystemTest, removalsTakeWhatWasSeenAndNoMore) {
    disk.write(QStringLiteral("elsewhere/keep.txt"), "k");
    disk.write(QStringLiteral("base/tree/deep/file"), "f");
    link(disk.path(QStringLiteral("elsewhere")), QStringLiteral("tree/link"));
    const QByteArray latin = at(QStringLiteral("tree/")).toUtf8() + "\xff";
    ASSERT_EQ(::close(::creat(latin.constData(), 0600)), 0);
    files.removeTree(item(QStringLiteral("tree")), {});
    EXPECT_THAT(disk.names(QStringLiteral("base")), IsEmpty());
    EXPECT_TRUE(disk.has(QStringLiteral("elsewhere/keep.txt")));
}

TEST_F(LocalFileSystemTest, rulesComeFromTheKindOfDisk) {
    constexpr quint64 fat = 0x4D44;
    constexpr quint64 fuse = 0x65735546;
    ASSERT_TRUE(diskTraitsOf(fat));
    const NameRules onFAT = diskTraitsOf(fat)->names;
    EXPECT_EQ(onFAT.key(QStringLiteral("FOTO.jpg")), onFAT.key(QStringLiteral("foto.JPG")));
    EXPECT_FALSE(onFAT.accepts(QStringLiteral("1 10:20.txt")));
    EXPECT_EQ(diskTraitsOf(fat)->largestFile, 0xFFFFFFFF);
    EXPECT_FALSE(diskTraitsOf(fuse)); // may be anything: it is tried out
    // This disk tells names apart, and trying it out leaves nothing behind.
    const NameRules here = files.nameRules(files.folder(), {});
    EXPECT_NE(here.key(QStringLiteral("a")), here.key(QStringLiteral("A")));
    EXPECT_TRUE(here.accepts(QStringLiteral("1 10:20.txt")));
    EXPECT_THAT(disk.names(QStringLiteral("base")), IsEmpty());
}

} // namespace
} // namespace tessary
