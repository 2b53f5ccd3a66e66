#include "preview/PictureDecoder.h"
#include "base/threads/CancellationError.h"
#include "platform/sandbox/Sandbox.h"
#include "preview/Sample.h"
#include "simulator/content/DemoMedia.h"
#include "support/Application.h"
#include "support/TemporaryFolder.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QProcess>
#include <gmock/gmock.h>

#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>

using namespace Qt::StringLiterals;
using namespace tessary;
using namespace std::chrono_literals;

namespace {

/// A red picture of 64 x 48 pixels, in one tile.
const QByteArray heic = sample("red.heic");

QByteArray saved(const char* format, const QSize& size = {400, 300}) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(image.save(&buffer, format));
    return bytes;
}

QByteArray bigEndian(quint32 value) {
    QByteArray bytes(4, '\0');
    for (int i = 0; i < 4; ++i)
        bytes[i] = static_cast<char>(value >> (24 - 8 * i) & 0xFF);
    return bytes;
}

QByteArray chunk(const QByteArray& type, const QByteArray& data) {
    quint32 crc = ~0U;
    for (const char byte : type + data) {
        crc ^= static_cast<quint8>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 1) != 0 ? 0xEDB88320U ^ (crc >> 1) : crc >> 1;
    }
    return bigEndian(static_cast<quint32>(data.size())) + type + data + bigEndian(~crc);
}

/// A PNG of one colour, with one bit a pixel and `rows` rows of content.
QByteArray monochromePng(quint32 width, quint32 height, qsizetype rows) {
    const QByteArray pixels(rows * (1 + (qsizetype{width} + 7) / 8), '\0');
    return QByteArray("\x89PNG\r\n\x1a\n", 8) +
           chunk("IHDR", bigEndian(width) + bigEndian(height) + QByteArray("\1\0\0\0\0", 5)) +
           chunk("IDAT", qCompress(pixels).mid(4)) + chunk("IEND", {});
}

/// A page of 200 x 100 with one line in a font that the document does not bring along.
const QByteArray pdfOfText = sample("text.pdf");

/// One red pixel.
const QByteArray gif =
    QByteArray::fromBase64("R0lGODlhAQABAIAAAP8AAP///yH5BAAAAAAALAAAAAABAAEAAAICRAEAOw==");

QByteArray pdf(const QByteArray& mediaBox, int pages = 2) {
    QByteArray bytes = "%PDF-1.4\n1 0 obj<</Type/Catalog/Pages 2 0 R>>endobj\n"
                       "2 0 obj<</Type/Pages/Kids[";
    for (int i = 0; i < pages; ++i)
        bytes += QByteArray::number(3 + i) + " 0 R ";
    bytes += "]/Count " + QByteArray::number(pages) + ">>endobj\n";
    for (int i = 0; i < pages; ++i)
        bytes += QByteArray::number(3 + i) + " 0 obj<</Type/Page/Parent 2 0 R/MediaBox[" +
                 mediaBox + "]>>endobj\n";
    return bytes + "trailer<</Root 1 0 R>>\n%%EOF\n";
}

QByteArray replaced(QByteArray bytes, const QByteArray& before, const QByteArray& after) {
    EXPECT_TRUE(bytes.contains(before));
    return bytes.replace(before, after);
}

class PictureDecoderTest : public Application, public testing::Test {
protected:
    Picture decode(const QByteArray& bytes, int maxSide = 100, int page = 0) {
        return decoder_.decode({folder_.write(u"file"_s, bytes), maxSide, page}, {});
    }

    /// A program that does what a shell's script says.
    QString program(const QByteArray& script) {
        const QString file = folder_.write(u"program"_s, "#!/bin/sh\n" + script);
        QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return file;
    }

    TemporaryFolder folder_;
    PictureDecoder decoder_;
};

} // namespace

TEST_F(PictureDecoderTest, everyKindIsDecodedAndMadeToFit) {
    const struct {
        const char* name;
        QByteArray bytes;
        QSize fullSize;
        QSize size;
        QRgb colour;
    } rows[] = {
        {"JPEG", saved("JPG"), {400, 300}, {100, 75}, 0xFFFF0000},
        {"PNG", saved("PNG"), {400, 300}, {100, 75}, 0xFFFF0000},
        {"WebP", saved("WEBP"), {400, 300}, {100, 75}, 0xFFFF0000},
        {"BMP", saved("BMP", {40, 30}), {40, 30}, {40, 30}, 0xFFFF0000},
        {"GIF", gif, {1, 1}, {1, 1}, 0xFFFF0000},
        {"HEIC", heic, {64, 48}, {64, 48}, 0xFFC82828},
        {"PDF", pdf("0 0 200 400"), {0, 0}, {50, 100}, 0xFFFFFFFF},
        {"thin PNG", monochromePng(20'000, 2, 2), {20'000, 2}, {100, 1}, 0xFF000000},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const Picture picture = decode(row.bytes);
        EXPECT_EQ(picture.image.size(), row.size);
        EXPECT_EQ(picture.fullSize, row.fullSize);
        const QColor colour = picture.image.pixelColor(picture.image.rect().center());
        const QColor wanted(row.colour);
        EXPECT_NEAR(colour.red(), wanted.red(), 12);
        EXPECT_NEAR(colour.green(), wanted.green(), 12);
        EXPECT_NEAR(colour.blue(), wanted.blue(), 12);
    }
}

TEST_F(PictureDecoderTest, textIsDrawnWithThisComputersFonts) {
    if (!hasFileWall())
        GTEST_SKIP() << "this kernel has no Landlock";
    const QImage page = decode(pdfOfText, 200).image;
    int dark = 0;
    for (int y = 0; y < page.height(); ++y)
        for (int x = 0; x < page.width(); ++x)
            dark += qGray(page.pixel(x, y)) < 100 ? 1 : 0;
    EXPECT_GT(dark, 1000);
}

TEST_F(PictureDecoderTest, decodingProcessHasGivenUpEverythingElse) {
    for (const auto& [program, file] : {std::pair(u"tessary-decode"_s, saved("PNG", {1000, 1000})),
                                        {u"tessary-film"_s, DemoMedia::film()}}) {
        SCOPED_TRACE(program.toStdString());
        // Its picture is more than a pipe holds, and is not read: it waits with it, walled in.
        QProcess process;
        process.setStandardInputFile(folder_.write(u"file"_s, file));
        process.start(installedHelper(program), {u"1000"_s, u"0"_s});
        ASSERT_TRUE(process.waitForStarted());
        const QString about = QStringLiteral("/proc/%1/").arg(process.processId());
        const auto textOf = [&](const char* name) {
            QFile facts(about + QString::fromLatin1(name));
            return facts.open(QIODevice::ReadOnly) ? facts.readAll() : QByteArray();
        };
        QElapsedTimer clock;
        for (clock.start(); !textOf("wchan").contains("pipe_write") && clock.elapsed() < 60'000;)
            std::this_thread::sleep_for(5ms);
        const QByteArray status = textOf("status");
        EXPECT_THAT(status.toStdString(), testing::HasSubstr("NoNewPrivs:\t1"));
        EXPECT_THAT(status.toStdString(), testing::HasSubstr("Seccomp:\t2"));
        // Only the superuser may look at them.
        EXPECT_THAT(QDir(about + u"fd"_s).entryList(QDir::System | QDir::Files),
                    testing::IsSubsetOf({u"0"_s, u"1"_s, u"2"_s}));
        process.kill();
        process.waitForFinished();
    }
}

TEST_F(PictureDecoderTest, hostileFilesAreRefusedSoon) {
    const QByteArray jpeg = saved("JPG");
    const std::pair<const char*, QByteArray> rows[] = {
        // name, bytes
        {"nothing", ""},
        {"text", "This is no picture."},
        {"PNG that unpacks to 1.6 GB", monochromePng(20'000, 20'000, 20'000)},
        {"PNG of 2^31 pixels a side", monochromePng(0x7FFFFFFF, 0x7FFFFFFF, 0)},
        {"PNG of no pixels", monochromePng(0, 0, 0)},
        {"JPEG cut in its header", jpeg.left(30)},
        {"JPEG of 65,500 pixels a side",
         replaced(jpeg, QByteArray::fromHex("012c0190"), QByteArray::fromHex("ffdcffdc"))},
        {"WebP cut", saved("WEBP").left(20)},
        {"HEIC cut", heic.left(200)},
        {"HEIC without pixels", heic.left(heic.size() - 30)},
        {"HEIC of 2^31 pixels a side", replaced(heic, QByteArray::fromHex("0000004000000030"),
                                                QByteArray::fromHex("7fffffff7fffffff"))},
        {"HEIC grid of other size than its tiles",
         replaced(heic, QByteArray::fromHex("0000000000400030"),
                  QByteArray::fromHex("0000ffff00400030"))},
        {"PDF without pages", pdf("0 0 100 100", 0)},
        {"PDF of a page wider than a town", pdf("0 0 1000000000 1000000000")},
        {"PDF header alone", "%PDF-1.7\n"},
        {"SVG, which may name other files", "<svg xmlns='http://www.w3.org/2000/svg'/>"},
    };
    const auto secondsOfPrograms = [] { // of a processor; what has it goes before them
        rusage use{};
        getrusage(RUSAGE_CHILDREN, &use);
        return use.ru_utime.tv_sec + use.ru_stime.tv_sec;
    };
    const auto before = secondsOfPrograms();
    for (const auto& [name, bytes] : rows)
        EXPECT_THROW((void)decode(bytes), PictureError) << name;
    EXPECT_LT(secondsOfPrograms() - before, 30);
    ASSERT_EQ(mkfifo(folder_.path(u"pipe"_s).toUtf8().constData(), 0600), 0);
    for (const char* other : {"", "pipe", "missing"})
        EXPECT_THROW((void)decoder_.decode({folder_.path(QString::fromLatin1(other)), 100, 0}, {}),
                     PictureError)
            << other;
    const QString tooLong = folder_.writeSparse(u"long"_s, PictureDecoder::longestFile + 1);
    EXPECT_THROW((void)decoder_.decode({tooLong, 100, 0}, {}), PictureError);
}

TEST_F(PictureDecoderTest, programThatHangsCrashesOrTalksNonsenseIsAnError) {
    const QString picture = folder_.write(u"file"_s, gif);
    const auto shell = [&](const char* script) {
        const PictureDecoder decoder(program(script), 500ms);
        return decoder.decode({picture, 64, 0}, {});
    };
    QElapsedTimer clock;
    clock.start();
    for (const char* script :
         {"kill -SEGV $$", "echo nonsense", "exit 1", "", "exec cat /dev/zero"})
        EXPECT_THROW((void)shell(script), PictureError) << script;
    EXPECT_THROW((void)shell("exec sleep 60"), PictureTimeoutError);
    for (const QString& missing : {u"/no/such/program"_s, QString()})
        EXPECT_THROW((void)PictureDecoder(missing).decode({picture, 64, 0}, {}), PictureError);
    EXPECT_LT(clock.elapsed(), 20'000);
}

TEST_F(PictureDecoderTest, decodingStopsWhenItIsAskedTo) {
    const QString begun = folder_.path(u"begun"_s);
    std::stop_source stop;
    const std::jthread later([&](const std::stop_token& given) {
        while (!QFile::exists(begun) && !given.stop_requested())
            std::this_thread::sleep_for(5ms);
        stop.request_stop();
    });
    QElapsedTimer clock;
    clock.start();
    const PictureDecoder slow(program("touch '" + begun.toUtf8() + "'; exec sleep 60"));
    EXPECT_THROW((void)slow.decode({folder_.write(u"file"_s, gif), 64, 0}, stop.get_token()),
                 CancellationError);
    EXPECT_LT(clock.elapsed(), 10'000);
}

TEST_F(PictureDecoderTest, onlyWholePicturesAreTakenFromTheOtherProcess) {
    Picture picture{QImage(3, 2, QImage::Format_ARGB32_Premultiplied), {30, 20}, 4};
    picture.image.fill(Qt::blue);
    const QByteArray bytes = encodePicture(picture);
    const auto same = decodePicture(bytes);
    ASSERT_TRUE(same);
    EXPECT_EQ(same->image, picture.image);
    EXPECT_EQ(same->fullSize, QSize(30, 20));
    EXPECT_EQ(same->pages, 4);
    for (qsizetype length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(decodePicture(bytes.left(length))) << length;
    EXPECT_FALSE(decodePicture(bytes + 'x'));
    QByteArray wide = bytes;
    wide.replace(4, 4, "\xFF\xFF\xFF\xFF");
    EXPECT_FALSE(decodePicture(wide));
}
