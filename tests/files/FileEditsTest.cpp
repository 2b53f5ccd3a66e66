#include "support/FileServiceFixture.h"

#include <QDirIterator>

#include <array>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

class FileEditsTest : public FileServiceFixture {
protected:
    FileEditsTest() : FileServiceFixture(twoStorages()) {
        phone().write(u"A/f.txt"_s, "f");
        phone().write(u"A/sub/g.txt"_s, "g");
        phone().write(u"B/f.txt"_s, "other f");
    }
    void createFolder(const char* name, const char* in) {
        service_->createFolder(QString::fromUtf8(name), QString::fromUtf8(in), phone().info);
    }
    void rename(const char* path, const QString& name) {
        service_->renameItem(item(path), name, phone().info);
    }
    void remove(const char* path) {
        service_->deleteFile(item(path), phone().info);
    }
    /// Every file of the phone with its content, sorted.
    [[nodiscard]] QStringList everything() {
        QStringList all;
        QDirIterator walk(phone().disk.path(), QDir::Files | QDir::Hidden,
                          QDirIterator::Subdirectories);
        while (walk.hasNext()) {
            const QString path = QDir(phone().disk.path()).relativeFilePath(walk.next());
            all.append(path + u'=' + QString::fromUtf8(phone().disk.read(path)));
        }
        all.sort();
        return all;
    }
};

TEST_F(FileEditsTest, newFolderIsMadeOnce) {
    createFolder("New", "/A/sub/");
    EXPECT_EQ(phone().names(u"A/sub"_s), (QStringList{u"New"_s, u"g.txt"_s}));
    EXPECT_TRUE(item("/A/sub/New").isDirectory);
    createFolder("Top", "/");
    EXPECT_TRUE(phone().names().contains(u"Top"_s));
    phone().android.clearRequestLog();
    for (const char* taken : {"sub", "f.txt"})
        EXPECT_TRUE(failureOf([&] { createFolder(taken, "/A"); }).contains(u"already"_s)) << taken;
    EXPECT_EQ(phone().requests(MTPOperationCode::sendObjectInfo), 0U);
}

TEST_F(FileEditsTest, deleteTakesAFileOrAFullFolderWithEverythingInIt) {
    remove("/A/f.txt");
    EXPECT_EQ(phone().names(u"A"_s), QStringList(u"sub"_s));
    for (const bool refusesFull : {false, true}) {
        phone().write(u"A/x/y/z/deep.txt"_s, "d");
        phone().write(u"A/x/1.txt"_s, "1");
        phone().disk.makeFolder(u"0/A/x/empty"_s);
        phone().behave([&](VirtualBehaviour& b) { b.refusesFullFolders = refusesFull; });
        phone().android.clearRequestLog();
        remove("/A/x");
        EXPECT_EQ(phone().names(u"A"_s), QStringList(u"sub"_s));
        EXPECT_EQ(phone().requests(MTPOperationCode::deleteObject), refusesFull ? 9U : 1U);
    }
    EXPECT_EQ(everything(), (QStringList{u"0/A/sub/g.txt=g"_s, u"0/B/f.txt=other f"_s}));
}

TEST_F(FileEditsTest, emptyingAFolderNeverLeavesIt) {
    // A phone that lists other folders' objects in a folder which it will not delete whole.
    phone().behave([](VirtualBehaviour& behaviour) { behaviour.refusesFullFolders = true; });
    const FileItem folder = item("/A");
    const std::uint32_t stranger = *item("/B/f.txt").handle;
    phone().fault([](VirtualFaults& faults) { faults.foldersHoldThemselves = true; });
    phone().rewriteData(MTPOperationCode::getObjectHandles, [=](Bytes& list) {
        list[12] = static_cast<std::byte>(static_cast<int>(list[12]) + 1); // one more at its end
        list[0] = static_cast<std::byte>(static_cast<int>(list[0]) + 4);
        for (int shift = 0; shift < 32; shift += 8)
            list.push_back(static_cast<std::byte>(stranger >> shift));
    });
    (void)failureOf([&] { service_->deleteFile(folder, phone().info); });
    EXPECT_EQ(phone().content(u"B/f.txt"_s), "other f");
    EXPECT_FALSE(phone().names(u"A"_s).contains(u"f.txt"_s));
}

TEST_F(FileEditsTest, refusedDeletionIsReported) {
    phone().refuse(MTPOperationCode::deleteObject, MTPResponseCode::objectWriteProtected);
    for (const char* path : {"/A/f.txt", "/A"})
        EXPECT_TRUE(fails([&] { remove(path); })) << path;
    EXPECT_EQ(everything().size(), 3);
}

TEST_F(FileEditsTest, renameChangesTheNameAndNothingElse) {
    rename("/A/f.txt", u"Ünï 🎉.txt"_s);
    EXPECT_EQ(phone().content(u"A/Ünï 🎉.txt"_s), "f");
    rename("/A/sub", u"renamed"_s);
    EXPECT_EQ(listedNames("/A/renamed"), QStringList(u"g.txt"_s));
    EXPECT_TRUE(fails([&] { (void)list("/A/sub"); }));
    EXPECT_NO_THROW(rename("/B/f.txt", u"f.txt"_s));
    EXPECT_EQ(phone().content(u"B/f.txt"_s), "other f");
}

TEST_F(FileEditsTest, impossibleNamesNeverReachThePhone) {
    const FileItem file = item("/A/f.txt");
    for (const QString& name :
         {u"sub"_s, QString(), u"."_s, u".."_s, u"x/y"_s, QString(255, u'x')}) {
        EXPECT_TRUE(fails([&] { service_->renameItem(file, name, phone().info); }));
        EXPECT_TRUE(fails([&] { service_->createFolder(name, u"/A"_s, phone().info); }));
    }
    EXPECT_EQ(phone().requests(MTPOperationCode::setObjectPropValue), 0U);
    EXPECT_EQ(phone().requests(MTPOperationCode::sendObjectInfo), 0U);
    EXPECT_TRUE(fails([&] { rename("/", u"x"_s); }));
    EXPECT_EQ(everything().size(), 3);
}

TEST_F(FileEditsTest, impossibleMovesAreRefusedBeforeThePhoneIsAsked) {
    const std::array<const char*, 3> rows[] = {{"into itself", "/A", "/A"},
                                               {"into what is in it", "/A", "/A/sub"},
                                               {"name is taken", "/A/f.txt", "/B"},
                                               {"where it is", "/A/f.txt", "/A"},
                                               {"no such folder", "/A/f.txt", "/C"},
                                               {"into a file", "/A/f.txt", "/B/f.txt"},
                                               {"other storage", "/A/f.txt", "/storage/131073"},
                                               {"whole storage", "/", "/A"}};
    const QStringList before = everything();
    for (const auto& [name, what, into] : rows) {
        const FileItem moved = item(what);
        const QString target = QString::fromUtf8(into);
        EXPECT_TRUE(fails([&] { service_->moveItem(moved, target, phone().info); })) << name;
    }
    EXPECT_EQ(phone().requests(MTPOperationCode::moveObject), 0U);
    EXPECT_EQ(everything(), before);
}

} // namespace
} // namespace tessary
