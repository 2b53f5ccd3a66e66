#include "transfer/local/LocalFileSystem.h"

#include "base/text/PathNames.h"
#include "phone/PartNames.h"
#include "support/CodeOf.h"
#include "support/FileBytes.h"
#include "support/QtPrinters.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <map>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::UnorderedElementsAre;

class LocalFileSystemTest : public testing::Test {
protected:
    LocalFileSystemTest() {
        disk.makeFolder(u"base"_s);
    }
    [[nodiscard]] QString at(const QString& name) const {
        return disk.path(u"base/"_s + name);
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
    LocalFileSystem files{disk.path(u"base"_s)};
};

TEST_F(LocalFileSystemTest, whatIsNoEntryIsReportedAndNeverLeftOut) {
    disk.write(u"elsewhere/secret.txt"_s, "s");
    disk.write(u"base/inside.txt"_s, "i");
    link(disk.path(u"elsewhere"_s), u"folder link"_s);
    link(disk.path(u"elsewhere/secret.txt"_s), u"out"_s);
    link(u"inside.txt"_s, u"in"_s);
    link(u"nowhere"_s, u"dangling"_s);
    ASSERT_EQ(::mkfifo(at(u"pipe"_s).toUtf8().constData(), 0600), 0);
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
    EXPECT_EQ(require(following, at(u"in"_s), {}).size, 1);
    EXPECT_EQ(::unlink(latin.constData()), 0); // nothing of Qt could
}

TEST_F(LocalFileSystemTest, nothingLeavesTheFolder) {
    disk.write(u"elsewhere/secret.txt"_s, "s");
    link(disk.path(u"elsewhere"_s), u"link"_s);
    const FileItem file = write(files.folder(), u"mine"_s, "m");
    FileItem through(u"secret.txt"_s, at(u"link/secret.txt"_s), false, 1, {});
    const QString outside = disk.path(u"elsewhere"_s);
    const struct {
        const char* name;
        std::function<void()> work;
        const char* code;
    } rows[] = {
        {"write through a link", [&] { write(at(u"link"_s), u"new"_s, "n"); }, "link"},
        {"folder through a link", [&] { files.makeFolder(at(u"link"_s), u"new"_s, {}); }, "link"},
        {"read through a link", [&] { (void)read(through); }, "link"},
        {"remove through a link", [&] { files.remove(through, {}); }, "link"},
        {"remove a tree through a link", [&] { files.removeTree(through, {}); }, "link"},
        {"rename through a link", [&] { files.rename(through, u"x"_s, TakenName::refused, {}); },
         "link"},
        {"move through a link", [&] { files.move(file, at(u"link"_s), {}); }, "link"},
        {"list a link", [&] { (void)listAll(files, at(u"link"_s), {}); }, "link"},
        {"write elsewhere", [&] { write(outside, u"new"_s, "n"); }, "leavesFolder"},
        {"write above", [&] { write(at(u"../elsewhere"_s), u"new"_s, "n"); }, "leavesFolder"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(codeOf(row.work), row.code) << row.name;
    EXPECT_THAT(disk.names(u"elsewhere"_s), ElementsAre(u"secret.txt"_s));
    EXPECT_THAT(disk.names(), ElementsAre(u"base"_s, u"elsewhere"_s));
}

TEST_F(LocalFileSystemTest, removalsTakeWhatWasSeenAndNoMore) {
    disk.write(u"elsewhere/keep.txt"_s, "k");
    disk.write(u"base/tree/deep/file"_s, "f");
    link(disk.path(u"elsewhere"_s), u"tree/link"_s);
    const QByteArray latin = at(u"tree/"_s).toUtf8() + "\xff";
    ASSERT_EQ(::close(::creat(latin.constData(), 0600)), 0);
    files.removeTree(item(u"tree"_s), {});
    EXPECT_THAT(disk.names(u"base"_s), IsEmpty());
    EXPECT_TRUE(disk.has(u"elsewhere/keep.txt"_s));
}

TEST_F(LocalFileSystemTest, aPartThatAnotherProgramGoesOnWithGetsNoName) {
    const QString name = resumablePartName(u"film"_s);
    const FileItem part = write(disk.path(u"base"_s), name, "whole");
    const auto giveName = [&] { (void)files.rename(part, u"film"_s, TakenName::refused, {}); };
    {
        const FileHandle other(::open(at(name).toUtf8().constData(), O_WRONLY | O_CLOEXEC));
        ASSERT_EQ(::flock(other.get(), LOCK_EX), 0);
        EXPECT_EQ(codeOf(giveName), "changed");
        ASSERT_EQ(::ftruncate(other.get(), 2), 0);
    }
    EXPECT_EQ(codeOf(giveName), "changed") << "it died over that";
    EXPECT_THAT(disk.names(u"base"_s), ElementsAre(name));
}

TEST_F(LocalFileSystemTest, rulesComeFromTheKindOfDisk) {
    constexpr quint64 fat = 0x4D44;
    constexpr quint64 fuse = 0x65735546;
    ASSERT_TRUE(diskTraitsOf(fat));
    const NameRules onFAT = diskTraitsOf(fat)->names;
    EXPECT_EQ(onFAT.key(u"FOTO.jpg"_s), onFAT.key(u"foto.JPG"_s));
    EXPECT_FALSE(onFAT.accepts(u"1 10:20.txt"_s));
    EXPECT_EQ(diskTraitsOf(fat)->largestFile, 0xFFFFFFFF);
    EXPECT_FALSE(diskTraitsOf(fuse)); // may be anything: it is tried out
    // This disk tells names apart, and trying it out leaves nothing behind.
    const NameRules here = files.nameRules(files.folder(), {});
    EXPECT_NE(here.key(u"a"_s), here.key(u"A"_s));
    EXPECT_TRUE(here.accepts(u"1 10:20.txt"_s));
    EXPECT_THAT(disk.names(u"base"_s), IsEmpty());
}

} // namespace
} // namespace tessary
