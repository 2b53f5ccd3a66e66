#include "preview/FilmPicture.h"

#include "preview/Sample.h"
#include "simulator/content/DemoMedia.h"
#include "support/Application.h"
#include "support/MemoryFileSystem.h"
#include "support/QtPrinters.h"

#include <QtEndian>

#include <gmock/gmock.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using Operation = MemoryFileSystem::Operation;

/// One red picture of 64 by 48 pixels in HEVC, to be turned by a quarter.
const QByteArray turned = sample("turned.mp4");

/// The same in VP9, not turned.
const QByteArray webm = sample("red.webm");

QByteArray number(quint32 value) {
    QByteArray bytes(4, Qt::Uninitialized);
    qToBigEndian(value, bytes.data());
    return bytes;
}

/// A film with another number `distance` bytes behind where a part's type stands.
QByteArray with(QByteArray film, const char* type, int distance, quint32 value) {
    const qsizetype at = film.indexOf(type);
    EXPECT_GE(at, 4) << type;
    return film.replace(at + distance, 4, number(value));
}

/// A film whose index lies so many bytes further back.
QByteArray longer(QByteArray film, quint32 by) {
    const qsizetype at = film.indexOf("mdat");
    const auto length = qFromBigEndian<quint32>(film.constData() + at - 4);
    film = with(film, "mdat", -4, length + by);
    return film.insert(at - 4 + length, QByteArray(by, '\xFF'));
}

class FilmPictureTest : public Application, public testing::Test {
protected:
    Picture show(const QByteArray& film, bool readsRanges = true) {
        phone_.emplace(MemoryFileSystem::Options{.capabilities = {.readsRanges = readsRanges}});
        phone_->addFile(u"/film"_s, film, QDateTime::currentDateTime());
        return firstPictureOf(*phone_, phone_->item(u"/film"_s), 160, {});
    }

    std::optional<MemoryFileSystem> phone_;
};

TEST_F(FilmPictureTest, isShownUprightOfAFewParts) {
    constexpr quint32 many = 20'000'000;
    const struct {
        const char* name;
        QByteArray film;
        QSize fullSize;
        QSize size;
        QRgb colour; ///< in the middle
        int parts;
    } rows[] = {
        {"H.264", DemoMedia::film(), {320, 240}, {160, 120}, 0xFF9DC5EB, 1},
        {"H.264, index far away",
         longer(DemoMedia::film(), many),
         {320, 240},
         {160, 120},
         0xFF9DC5EB,
         4},
        {"HEVC, turned", turned, {48, 64}, {48, 64}, 0xFFFF0000, 1},
        {"VP9, with much behind it",
         webm + QByteArray(many, '\0'),
         {64, 48},
         {64, 48},
         0xFFFF0000,
         2},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const Picture picture = show(row.film);
        EXPECT_EQ(picture.fullSize, row.fullSize);
        EXPECT_EQ(picture.image.size(), row.size);
        const QColor found = picture.image.pixelColor(picture.image.rect().center());
        EXPECT_LT(std::abs(found.red() - qRed(row.colour)) +
                      std::abs(found.green() - qGreen(row.colour)) +
                      std::abs(found.blue() - qBlue(row.colour)),
                  20)
            << found.name().toStdString();
        EXPECT_LE(phone_->bytes(Operation::read), filmPartsLimit / 2);
        EXPECT_LE(phone_->count(Operation::read), row.parts);
    }
}

TEST_F(FilmPictureTest, aPhoneThatSendsOnlyWholeFilmsIsNotAskedForLongOnes) {
    EXPECT_EQ(show(DemoMedia::film(), false).fullSize, QSize(320, 240));
    EXPECT_THROW((void)show(longer(DemoMedia::film(), 20'000'000), false), PictureError);
    EXPECT_EQ(phone_->bytes(Operation::read), 0);
}

TEST_F(FilmPictureTest, hostileFilmsAreRefusedSoonAndCostLittle) {
    const QByteArray film = DemoMedia::film();
    constexpr quint32 most = 0xFFFFFFFF;
    const std::pair<const char*, QByteArray> rows[] = {
        {"nothing but a name", number(8) + "ftyp"},
        {"text", "This is no film, and goes on for a while."},
        {"an index longer than the film", with(film, "moov", -4, most)},
        {"an index of 9 MiB", film.left(film.indexOf("moov") - 4) + number(9 << 20) + "moov" +
                                  QByteArray((9 << 20) - 8, '\0')},
        {"a part of 2^63 bytes", number(20) + "ftyp" + QByteArray(12, 'q') + number(1) + "mdat" +
                                     number(0x80000000) + number(0) + QByteArray(100, 'm')},
        {"parts of no length",
         (number(20) + "ftyp" + QByteArray(12, 'q')) + number(7) + "mdat" + QByteArray(100, 'm')},
        {"parts without end", (number(8) + "free").repeated(2'000'000)},
        {"an index within itself", with(film, "trak", 0, 0x6D6F6F76)},
        {"a picture of 65,535 pixels a side", with(film, "avc1", 28, most)},
        {"4,294,967,295 samples", with(film, "stsz", 12, most)},
        {"a sample of 2 GiB", with(film, "stsz", 8, 0x7FFFFFFF)},
        {"samples beyond the end", with(film, "stco", 12, most)},
        {"a chunk list that is longer than it", with(film, "stco", 8, most)},
        {"a codec that is none", with(film, "avc1", 0, 0x78787878)},
        {"another file's name for the film", with(film, "url ", 4, 0)},
        {"WebM cut", webm.left(webm.size() - 40)},
        {"WebM without a cluster", webm.left(webm.size() / 2)},
    };
    for (const auto& [name, bytes] : rows) {
        SCOPED_TRACE(name);
        try {
            // What the pictures themselves tell may be right all the same.
            EXPECT_EQ(show(bytes).fullSize, QSize(320, 240));
        } catch (const PictureTimeoutError&) {
            ADD_FAILURE() << "took too long";
        } catch (const PictureError&) {
            // As good.
        }
        EXPECT_LE(phone_->bytes(Operation::read), filmPartsLimit);
        EXPECT_LE(phone_->count(Operation::read), 70);
    }
}

TEST_F(FilmPictureTest, brokenBytesNeverDoMoreThanFail) {
    for (const QByteArray& whole : {DemoMedia::film(), turned, webm})
        for (int n = 0; n < 12; ++n) {
            const qsizetype at = n * whole.size() / 12 + n;
            QByteArray flipped = whole;
            flipped[at] = static_cast<char>(~flipped[at]);
            for (const QByteArray& bytes : {flipped, whole.left(at)})
                try {
                    EXPECT_LE(show(bytes).image.width(), 160);
                } catch (const PictureTimeoutError&) {
                    ADD_FAILURE() << "byte " << at;
                } catch (const PictureError&) {
                    // As good.
                }
        }
}

} // namespace
} // namespace tessary
