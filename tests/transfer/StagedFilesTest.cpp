#include "transfer/staging/StagedFiles.h"

#include "support/QtPrinters.h"
#include "transfer/CopySides.h"

#include <gmock/gmock.h>

namespace tessary {
namespace {

using Operation = MemoryFileSystem::Operation;

class StagedFilesTest : public testing::Test {
protected:
    StagedFilesTest() {
        qputenv("XDG_CACHE_HOME", cache.path().toUtf8());
        phone.fill({{s("a.txt"), "first"}, {s("b.txt"), "second"}, {s("c.txt"), "third"}}, noon);
    }
    [[nodiscard]] QString fetch(StagedFiles& staged, const char* name) {
        return staged.fetch(*phone.memory, phone.memory->item(phone.at(s(name))), {}, {});
    }
    [[nodiscard]] static QByteArray contentOf(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    const TemporaryFolder cache;
    MemorySide phone;
};

TEST_F(StagedFilesTest, aCopyIsMadeOnceAndAnotherForWhatChanged) {
    StagedFiles staged(s("test"));
    EXPECT_EQ(staged.find(*phone.memory, phone.memory->item(s("/side/a.txt"))), std::nullopt);
    const QString first = fetch(staged, "a.txt");
    EXPECT_EQ(lastComponent(first), s("a.txt"));
    EXPECT_EQ(contentOf(first), "first");
    EXPECT_EQ(fetch(staged, "a.txt"), first);
    EXPECT_EQ(phone.memory->count(Operation::read), 1);
    phone.put(s("a.txt"), "other", noon.addSecs(1));
    const QString other = fetch(staged, "a.txt");
    EXPECT_NE(other, first);
    EXPECT_EQ(contentOf(other), "other");
    MemorySide twin({.identity = s("another phone")});
    twin.put(s("a.txt"), "other", noon.addSecs(1));
    EXPECT_NE(staged.fetch(*twin.memory, twin.memory->item(s("/side/a.txt")), {}, {}), other);
}

TEST_F(StagedFilesTest, aCopyIsForReadingAndNoEditIsTakenForThePhonesFile) {
    StagedFiles staged(s("test"));
    const QString path = fetch(staged, "a.txt");
    EXPECT_FALSE(QFile::permissions(path).testAnyFlags(
        QFileDevice::WriteOwner | QFileDevice::WriteGroup | QFileDevice::WriteOther));
    QFile file(path);
    ASSERT_TRUE(file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write("edited");
    file.close();
    EXPECT_EQ(staged.find(*phone.memory, phone.memory->item(s("/side/a.txt"))), std::nullopt);
    EXPECT_EQ(contentOf(fetch(staged, "a.txt")), "first");
}

TEST_F(StagedFilesTest, hostileNamesGetOneOfOurs) {
    StagedFiles staged(s("test"));
    phone.memory->addHostile(s("/side"), s("../../etc/x.png"), "p");
    const FileItem item = listAll(*phone.memory, s("/side"), {}).items.back();
    ASSERT_EQ(item.name, s("../../etc/x.png"));
    // The file is gone for its phone; only where it would lie matters.
    EXPECT_EQ(staged.find(*phone.memory, item), std::nullopt);
    FileItem named = phone.memory->item(s("/side/a.txt"));
    named.name = s("../../a.png");
    EXPECT_EQ(lastComponent(staged.fetch(*phone.memory, named, {}, {})), s("file.png"));
    named.name = QString(300, u'n') + s(".txt");
    EXPECT_EQ(lastComponent(staged.fetch(*phone.memory, named, {}, {})), s("file.txt"));
}

} // namespace
} // namespace tessary
