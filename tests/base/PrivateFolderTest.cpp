#include "base/local/PrivateFolder.h"
#include "base/local/LocalError.h"
#include "base/local/ScratchFolder.h"
#include "base/local/TreeRemoval.h"
#include "support/OrdinaryUser.h"
#include "support/QtPrinters.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <optional>

#include <fcntl.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;
using namespace tessary;

namespace {

mode_t permissions(const QString& path) {
    struct stat facts {};
    EXPECT_EQ(stat(qUtf8Printable(path), &facts), 0);
    return facts.st_mode & 07777;
}

void setAge(const QString& path, int seconds) {
    const timespec then{std::time(nullptr) - seconds, 0};
    const timespec times[2] = {then, then};
    ASSERT_EQ(utimensat(AT_FDCWD, qUtf8Printable(path), times, AT_SYMLINK_NOFOLLOW), 0);
}

/// A variable of the environment, given back afterwards.
class Variable {
public:
    Variable(const char* name, const QString& value) : name_(name), before_(qgetenv(name)) {
        qputenv(name, value.toUtf8());
    }
    ~Variable() {
        before_.isNull() ? qunsetenv(name_) : qputenv(name_, before_);
    }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* name_;
    const QByteArray before_;
};

constexpr uid_t somebodyElse = 65534;

struct PrivateFolderTest : testing::Test {
    TemporaryFolder disk;
};

TEST_F(PrivateFolderTest, isMadeForThisUserAloneWhateverTheMask) {
    const mode_t before = umask(0);
    const Variable cache("XDG_CACHE_HOME", disk.path(u"deep/cache"_s));
    const Variable runtime("XDG_RUNTIME_DIR", disk.path(u"run"_s));
    umask(022);
    const PrivateFolder copies(PrivateFolder::Place::cache, u"copies"_s);
    const PrivateFolder mounts(PrivateFolder::Place::runtime, u"mounts"_s);
    umask(before);
    EXPECT_EQ(copies.path(), disk.path(u"deep/cache/tessary/copies"_s));
    EXPECT_EQ(mounts.path(), disk.path(u"run/tessary/mounts"_s));
    for (const char* path : {"deep/cache/tessary", "deep/cache/tessary/copies", "run/tessary"})
        EXPECT_EQ(permissions(disk.path(QString::fromLatin1(path))), 0700U) << path;
}

TEST_F(PrivateFolderTest, whatIsThereIsTakenOnlyWhenItIsOurs) {
    const QString top = disk.path();
    disk.makeFolder(u"open"_s);
    ASSERT_EQ(chmod(qUtf8Printable(disk.path(u"open"_s)), 0777), 0);
    EXPECT_EQ(PrivateFolder(top, u"open"_s).path(), disk.path(u"open"_s));
    EXPECT_EQ(permissions(disk.path(u"open"_s)), 0700U);

    disk.write(u"file"_s, "content");
    disk.makeFolder(u"elsewhere"_s);
    QFile::link(disk.path(u"elsewhere"_s), disk.path(u"link"_s));
    for (const char* name : {"file", "link", "", "..", ".hidden", "a/b"})
        EXPECT_THROW(PrivateFolder(top, QString::fromLatin1(name)), Error) << name;
    if (geteuid() == 0) {
        disk.makeFolder(u"theirs"_s);
        ASSERT_EQ(chown(qUtf8Printable(disk.path(u"theirs"_s)), somebodyElse, 0), 0);
        EXPECT_THROW(PrivateFolder(top, u"theirs"_s), Error);
        EXPECT_THROW(PrivateFolder(disk.path(u"theirs"_s), u"new"_s), Error)
            << "they could swap it";
    }
    disk.makeFolder(u"shared"_s);
    for (const mode_t shared : {0777, 01777, 0770}) {
        ASSERT_EQ(chmod(qUtf8Printable(disk.path(u"shared"_s)), shared), 0);
        EXPECT_THROW(PrivateFolder(disk.path(u"shared"_s), u"new"_s), Error) << shared;
    }
    EXPECT_EQ(disk.names(u"elsewhere"_s), QStringList());
}

TEST_F(PrivateFolderTest, placesOfOtherUsersArePassedOver) {
    if (geteuid() != 0)
        GTEST_SKIP() << "only root has other users' folders";
    const QString theirs = disk.makeFolder(u"theirs"_s);
    ASSERT_EQ(chown(qUtf8Printable(theirs), somebodyElse, 0), 0);
    const Variable cache("XDG_CACHE_HOME", disk.makeFolder(u"ours"_s));
    for (const QString& place : {theirs, theirs + u"/missing/run"_s}) {
        const Variable runtime("XDG_RUNTIME_DIR", place);
        EXPECT_EQ(PrivateFolder(PrivateFolder::Place::runtime, u"mounts"_s).path(),
                  disk.path(u"ours/tessary/mounts"_s));
        EXPECT_EQ(disk.names(u"theirs"_s), QStringList());
    }
}

TEST_F(PrivateFolderTest, scratchFoldersOfEndedProgramsAreRemovedOnceTheyAreOld) {
    const PrivateFolder ours(disk.path(), u"ours"_s);
    const ScratchFolder running(ours);
    disk.makeFolder(u"outside"_s);
    for (const char* name : {"scratch-old/deep", "scratch-young", "scratch-ahead", "something-old"})
        disk.write(u"ours/"_s + QString::fromLatin1(name) + u"/file"_s, "content");
    QFile::link(disk.path(u"outside"_s), disk.path(u"ours/scratch-link"_s));
    for (const QString& name : disk.names(u"ours"_s))
        setAge(disk.path(u"ours/"_s + name), name == u"scratch-young"_s   ? 9 * 60
                                             : name == u"scratch-ahead"_s ? -11 * 60
                                                                          : 11 * 60);
    const ScratchFolder next(ours);
    QStringList left = disk.names(u"ours"_s);
    for (const ScratchFolder* one : {&running, &next})
        EXPECT_EQ(left.removeAll(one->path().section(u'/', -1)), 1) << "its program runs";
    EXPECT_EQ(left, (QStringList{u"scratch-link"_s, u"scratch-young"_s, u"something-old"_s}));
    EXPECT_TRUE(disk.has(u"outside"_s));
}

TEST_F(PrivateFolderTest, unfinishedThingsCanBeRemovedAtOnce) {
    const QString top = disk.path();
    const int folder = open(qUtf8Printable(top), O_RDONLY | O_DIRECTORY);
    ASSERT_GE(folder, 0);
    disk.write(u"part"_s, "half");
    disk.write(u"tree/file"_s, "half");
    disk.write(u"whole"_s, "all");
    Unfinished part(folder, "part");
    std::optional<Unfinished> whole(std::in_place, folder, "whole");
    const Unfinished tree(folder, "tree");
    const Unfinished moved = std::move(part);
    close(folder);
    whole.reset();
    Unfinished::removeAll();
    EXPECT_EQ(disk.names(), QStringList{u"whole"_s});
}

/// Removal of "top" below a folder where "secret" stays.
struct TreeRemovalTest : testing::Test {
    TreeRemovalTest() {
        disk.write(u"secret/file"_s, "secret");
        folder = open(qUtf8Printable(disk.path()), O_RDONLY | O_DIRECTORY);
    }
    ~TreeRemovalTest() override {
        close(folder);
    }

    TemporaryFolder disk;
    int folder = -1;
};

TEST_F(TreeRemovalTest, allOfATreeGoesWhateverItsShape) {
    disk.write(u"top/.hidden"_s, "");
    disk.write(u"top/a/b"_s, "");
    QFile::link(disk.path(u"secret"_s), disk.path(u"top/a/link"_s));
    ASSERT_EQ(mkfifo(qUtf8Printable(disk.path(u"top/pipe"_s)), 0600), 0);
    int at = open(qUtf8Printable(disk.path(u"top"_s)), O_RDONLY | O_DIRECTORY);
    close(openat(at, "\xFF\xFE", O_CREAT | O_WRONLY, 0600));
    for (int depth = 0; depth < 300; ++depth) {
        ASSERT_EQ(mkdirat(at, "folder", 0700), 0);
        const int next = openat(at, "folder", O_RDONLY | O_DIRECTORY);
        close(at);
        at = next;
    }
    close(at);
    EXPECT_EQ(removeTreeAt(folder, "top"), 0);
    EXPECT_EQ(disk.names(), QStringList{u"secret"_s});
    EXPECT_EQ(disk.read(u"secret/file"_s), "secret");
}

TEST_F(TreeRemovalTest, foldersThatAreClosedAgainstTheirOwnerGoToo) {
    ASSERT_EQ(chmod(qUtf8Printable(disk.path()), 0777), 0);
    const OrdinaryUser user;
    disk.write(u"top/closed/inner/file"_s, "");
    for (const char* path : {"top/closed/inner", "top/closed", "top"})
        ASSERT_EQ(chmod(qUtf8Printable(disk.path(QString::fromLatin1(path))), 0), 0);
    EXPECT_EQ(removeTreeAt(folder, "top"), 0);
    EXPECT_EQ(disk.names(), QStringList{u"secret"_s});
}

TEST_F(TreeRemovalTest, linksAndMissingThingsAreTakenAsTheyAre) {
    QFile::link(disk.path(u"secret"_s), disk.path(u"top"_s));
    EXPECT_EQ(removeTreeAt(folder, "top"), 0);
    EXPECT_EQ(removeTreeAt(folder, "top"), 0) << "nothing there is as good";
    EXPECT_EQ(disk.names(), QStringList{u"secret"_s});
    EXPECT_EQ(removeTreeAt(-1, "top"), EBADF);
}

} // namespace
