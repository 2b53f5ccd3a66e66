#include "transfer/staging/StagedFiles.h"

#include "base/local/LocalError.h"
#include "support/QtPrinters.h"
#include "transfer/CopySides.h"
#include "transfer/copy/Spool.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFileInfo>

#include <sys/stat.h>

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

TEST_F(StagedFilesTest, whatWasNotUsedForLongestGoesFirst) {
    StagedFiles staged(s("test"), 12);
    const QString a = fetch(staged, "a.txt");
    struct timespec old[] = {{1000, 0}, {1000, 0}};
    const QString b = fetch(staged, "b.txt");
    ::utimensat(AT_FDCWD, b.toUtf8().constData(), old, 0);
    const QString c = fetch(staged, "c.txt");
    EXPECT_TRUE(QFileInfo::exists(a));
    EXPECT_FALSE(QFileInfo::exists(b));
    EXPECT_TRUE(QFileInfo::exists(c));
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

TEST_F(StagedFilesTest, whatIsTooLargeOrFailsLeavesNothing) {
    StagedFiles staged(s("test"), 8);
    EXPECT_THROW((void)fetch(staged, "a.txt"), Error);
    EXPECT_EQ(phone.memory->count(Operation::read), 0);
    StagedFiles large(s("test"));
    phone.memory->failAfterBytes(Operation::read, s("/side/b.txt"), 3, {PhoneError::unplugged});
    EXPECT_THROW((void)fetch(large, "b.txt"), Error);
    EXPECT_EQ(large.find(*phone.memory, phone.memory->item(s("/side/b.txt"))), std::nullopt);
}

TEST_F(StagedFilesTest, aSpoolTakesFewBytesInMemoryAndMoreOnDisk) {
    for (const qint64 inMemory : {qint64{10'000}, film.size()}) {
        Spool spool(inMemory);
        for (qsizetype at = 0; at < film.size(); at += 5000)
            spool.append(
                ByteView(reinterpret_cast<const std::byte*>(film.constData()) + at,
                         static_cast<std::size_t>(std::min<qsizetype>(5000, film.size() - at))));
        EXPECT_EQ(spool.isOnDisk(), inMemory < film.size());
        EXPECT_EQ(spool.size(), film.size());
        QByteArray content;
        Bytes piece(7001);
        while (const std::size_t count = spool.read(piece))
            content.append(reinterpret_cast<const char*>(piece.data()),
                           static_cast<qsizetype>(count));
        EXPECT_EQ(content, film);
    }
    EXPECT_TRUE(cache.names(s("tessary/spool")).isEmpty()); // it has no name there
}

} // namespace
} // namespace tessary
