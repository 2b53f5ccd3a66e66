#include "support/MemoryFileSystem.h"
#include "support/QtPrinters.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tessary {
namespace {

using Operation = MemoryFileSystem::Operation;
using testing::ElementsAre;

ByteSource sourceOf(const QByteArray& content) {
    return [content, done = qsizetype{0}](std::span<std::byte> into) mutable {
        const qsizetype count =
            std::min(content.size() - done, static_cast<qsizetype>(into.size()));
        std::copy_n(reinterpret_cast<const std::byte*>(content.constData()) + done, count,
                    into.data());
        done += count;
        return static_cast<std::size_t>(count);
    };
}

QByteArray contentOf(PhoneFileSystem& files, const FileItem& item, ByteRange range = {}) {
    QByteArray content;
    files.read(item, range,
               [&content](ByteView bytes) {
                   content.append(reinterpret_cast<const char*>(bytes.data()),
                                  static_cast<qsizetype>(bytes.size()));
               },
               {});
    return content;
}

template <typename Work>
std::optional<ErrorCode> codeOf(Work&& work) {
    try {
        work();
    } catch (const Error& error) {
        return error.code();
    }
    return std::nullopt;
}

TEST(MemoryFileSystem, filesAreWrittenListedReadRenamedMovedAndRemoved) {
    MemoryFileSystem files;
    files.addFolder(QStringLiteral("/a/b"));
    const QByteArray content(2500, 'x');
    const FileItem made =
        files.write({QStringLiteral("/a"), QStringLiteral("f.txt"), content.size(), {}},
                    sourceOf(content), {}, {});
    EXPECT_EQ(contentOf(files, made), content);
    EXPECT_EQ(contentOf(files, made, {2000, 100}).size(), 100);
    const FileItem renamed = files.rename(made, QStringLiteral("G.txt"), TakenName::refused, {});
    const FileItem moved = files.move(renamed, QStringLiteral("/a/b"), {});
    EXPECT_EQ(moved.path, QStringLiteral("/a/b/G.txt"));
    EXPECT_EQ(listAll(files, QStringLiteral("/a/b"), {}).items.size(), 1U);
    EXPECT_EQ(codeOf([&] { files.remove(files.item(QStringLiteral("/a/b")), {}); }),
              ErrorCode(PhoneError::folderNotEmpty));
    files.remove(moved, {});
    EXPECT_EQ(files.tree(), (QStringList{QStringLiteral("/a/"), QStringLiteral("/a/b/")}));
    EXPECT_EQ(files.bytes(Operation::write), 2500);
}

TEST(MemoryFileSystem, itIsStrict) {
    MemoryFileSystem files;
    files.addFile(QStringLiteral("/Foto.jpg"), "old");
    const auto writes = [&files](const QString& name, qint64 announced) {
        return codeOf([&] {
            files.write({QStringLiteral("/"), name, announced, {}}, sourceOf("12345"), {}, {});
        });
    };
    EXPECT_EQ(writes(QStringLiteral("foto.JPG"), 5), ErrorCode(PhoneError::sameName));
    EXPECT_EQ(writes(QStringLiteral("Foto.jpg"), 5), ErrorCode(PhoneError::taken));
    EXPECT_EQ(writes(QStringLiteral("a/b"), 5), ErrorCode(PhoneError::nameNotAllowed));
    EXPECT_EQ(writes(QStringLiteral("more"), 4), ErrorCode(PhoneError::wrongSize));
    EXPECT_EQ(writes(QStringLiteral("fewer"), 6), ErrorCode(PhoneError::wrongSize));
    EXPECT_EQ(files.tree(), QStringList{QStringLiteral("/Foto.jpg")});
    FileItem asFolder = files.item(QStringLiteral("/Foto.jpg"));
    asFolder.isDirectory = true;
    EXPECT_EQ(codeOf([&] { files.remove(asFolder, {}); }), ErrorCode(PhoneError::changed));
}

TEST(MemoryFileSystem, faultsHitWhatTheyWereMeantFor) {
    MemoryFileSystem files;
    files.addFile(QStringLiteral("/a"), QByteArray(3000, 'a'));
    files.addFile(QStringLiteral("/b"), "b");
    files.failAfterBytes(Operation::read, QStringLiteral("/a"), 1500, {PhoneError::noAnswer});
    files.cutListing(QStringLiteral("/"), 1);
    const FileItem a = files.item(QStringLiteral("/a"));
    qint64 arrived = 0;
    const auto readA = [&] {
        files.read(a, {}, [&](ByteView bytes) { arrived += static_cast<qint64>(bytes.size()); },
                   {});
    };
    EXPECT_EQ(codeOf(readA), ErrorCode(PhoneError::noAnswer));
    EXPECT_EQ(arrived, 1500);
    EXPECT_EQ(codeOf([&] { (void)listAll(files, QStringLiteral("/"), {}); }),
              ErrorCode(PhoneError::listingBroken));
    files.failCall(2, {PhoneError::refused, {QStringLiteral("/b")}});
    EXPECT_EQ(codeOf(readA), std::nullopt);
    EXPECT_EQ(codeOf(readA), ErrorCode(PhoneError::refused));
    files.loseLink();
    EXPECT_EQ(codeOf(readA), ErrorCode(PhoneError::unplugged));
    files.restoreLink();
    EXPECT_EQ(codeOf(readA), std::nullopt);
    EXPECT_EQ(files.count(Operation::read), 5);
}

} // namespace
} // namespace tessary
