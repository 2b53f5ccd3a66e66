#include "app/previews/TextSample.h"
#include "app/previews/PreviewKind.h"
#include "app/previews/ThumbnailCache.h"
#include "support/QtPrinters.h"
#include "support/TemporaryFolder.h"

#include <QStringEncoder>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tessary;

namespace {

QByteArray in(QStringConverter::Encoding encoding, const QString& text, bool mark = false) {
    return QStringEncoder(encoding,
                          mark ? QStringConverter::Flag::WriteBom : QStringConverter::Flag::Default)
        .encode(text);
}

} // namespace

TEST(TextSample, encodingIsGuessed) {
    const QString umlauts = QStringLiteral("Größe, Übermut und Äpfel\n");
    using Code = QStringConverter;
    const std::pair<const char*, QByteArray> rows[] = {
        {"UTF-8", umlauts.toUtf8()},
        {"UTF-8 with mark", in(Code::Utf8, umlauts, true)},
        {"UTF-16 with mark", in(Code::Utf16LE, umlauts, true)},
        {"UTF-16, big-endian, with mark", in(Code::Utf16BE, umlauts, true)},
        {"UTF-32 with mark", in(Code::Utf32LE, umlauts, true)},
        {"UTF-16 without mark", in(Code::Utf16LE, umlauts)},
        {"UTF-16, big-endian, without mark", in(Code::Utf16BE, umlauts)},
        {"Latin-1", umlauts.toLatin1()},
    };
    for (const auto& [name, bytes] : rows) {
        const auto sample = textSampleOf(bytes);
        ASSERT_TRUE(sample) << name;
        EXPECT_EQ(sample->text, umlauts) << name;
        EXPECT_FALSE(sample->isCut);
    }
    EXPECT_EQ(textSampleOf("")->text, QString());
}

TEST(TextSample, bytesThatAreNoTextAreNotShownAsOne) {
    QByteArray everyByte;
    for (int i = 0; i < 256; ++i)
        everyByte.append(static_cast<char>(i));
    const std::pair<const char*, QByteArray> rows[] = {
        {"zeros", QByteArray(1000, '\0')},
        {"every byte", everyByte.repeated(10)},
        {"a program", QByteArray("\x7f"
                                 "ELF\2\1\1\0\0\0\0\0",
                                 12) +
                          everyByte},
        {"control characters", QByteArray("\1\2\3\4\5\6").repeated(50)},
    };
    for (const auto& [name, bytes] : rows)
        EXPECT_FALSE(textSampleOf(bytes)) << name;
    EXPECT_FALSE(readTextSample(QStringLiteral("/no/such/file")));
}

TEST(TextSample, longTextIsCutWithoutBreakingACharacter) {
    const TemporaryFolder folder;
    const QByteArray bytes = "x" + QByteArray("é").repeated(TextSample::maxBytes);
    const auto sample = readTextSample(folder.write(QStringLiteral("long.txt"), bytes));
    ASSERT_TRUE(sample);
    EXPECT_TRUE(sample->isCut);
    EXPECT_EQ(sample->text.size(), 1 + (TextSample::maxBytes - 1) / 2);
    EXPECT_FALSE(sample->text.contains(QChar::ReplacementCharacter));
}

TEST(PreviewKind, followsTheExtensionAndTheSize) {
    const auto kind = [](const char* name, bool isFolder = false) {
        return previewKindOf({QString::fromUtf8(name), {}, isFolder, 1, {}});
    };
    EXPECT_EQ(kind("a.JPG"), PreviewKind::picture);
    EXPECT_EQ(kind("a.heic"), PreviewKind::picture);
    EXPECT_EQ(kind("a.pdf"), PreviewKind::document);
    EXPECT_EQ(kind("a.md"), PreviewKind::text);
    for (const char* name : {"a", "a.", ".jpg jpeg", "a.mp4", "a.j"})
        EXPECT_EQ(kind(name), PreviewKind::facts) << name;
    EXPECT_EQ(kind("a.jpg", true), PreviewKind::facts);
    for (const qint64 size : {qint64{0}, thumbnailLimit + 1})
        EXPECT_FALSE(hasThumbnail({QStringLiteral("a.jpg"), {}, false, size, {}}));
    EXPECT_TRUE(hasThumbnail({QStringLiteral("a.jpg"), {}, false, thumbnailLimit, {}}));
}

TEST(ThumbnailCache, keepsWhatFitsAndForgetsWhatItCannotRead) {
    const TemporaryFolder folder;
    ThumbnailCache cache(folder.path(QStringLiteral("cache")), 3'000);
    QImage image(64, 48, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::green);
    cache.store(QStringLiteral("one"), image);
    const auto loaded = cache.load(QStringLiteral("one"));
    ASSERT_TRUE(loaded);
    EXPECT_EQ(loaded->size(), image.size());
    EXPECT_EQ(loaded->pixelColor(3, 3), QColor(Qt::green));
    EXPECT_FALSE(cache.load(QStringLiteral("two")));
    folder.write(QStringLiteral("cache/two.png"), "no picture");
    EXPECT_FALSE(cache.load(QStringLiteral("two")));
    for (int i = 0; i < 100; ++i)
        cache.store(QString::number(i), image);
    qint64 bytes = 0;
    for (const QString& name : folder.names(QStringLiteral("cache")))
        bytes += folder.read(QStringLiteral("cache/") + name).size();
    EXPECT_LE(bytes, 3'300);
    EXPECT_GT(bytes, 0);
}
