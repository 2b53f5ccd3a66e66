#include "preview/PhoneThumbnail.h"

#include "mtp/files/MTPFileSystem.h"
#include "preview/PictureDecoder.h"
#include "support/Application.h"
#include "support/PluggedPhone.h"
#include "support/QtPrinters.h"

#include <QBuffer>
#include <QPainter>

#include <gmock/gmock.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using enum MTPOperationCode;

/// A small JPEG file, twice as wide as high: its left half red, its right half blue.
QByteArray smallJPEG() {
    QImage image(96, 48, QImage::Format_RGB32);
    image.fill(Qt::blue);
    QPainter(&image).fillRect(0, 0, 48, 48, Qt::red);
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly);
    image.save(&bytes, "JPG");
    return bytes.data();
}

/// The beginning of a camera's file: Exif data with an orientation, in either order of bytes.
QByteArray exif(bool isLittle, char orientation) {
    return isLittle ? QByteArray("\xFF\xD8\xFF\xE0\0\x04zz\xFF\xE1\0\x22"
                                 "Exif\0\0"
                                 "II\x2A\0\x08\0\0\0\x01\0\x12\x01\x03\0\x01\0\0\0",
                                 36) +
                          orientation + QByteArray(7, '\0')
                    : QByteArray("\xFF\xD8\xFF\xE1\0\x22"
                                 "Exif\0\0"
                                 "MM\0\x2A\0\0\0\x08\0\x01\x01\x12\0\x03\0\0\0\x01\0",
                                 31) +
                          orientation + QByteArray(6, '\0');
}

TEST(ExifOrientation, isReadInBothOrdersOfBytesAndTrustsNothing) {
    for (const bool isLittle : {true, false}) {
        const QByteArray whole = exif(isLittle, 6);
        EXPECT_EQ(orientationOf(whole), 6);
        for (qsizetype cut = 0; cut < whole.size(); ++cut)
            EXPECT_THAT(orientationOf(whole.left(cut)), testing::AnyOf(1, 6)) << cut;
        for (qsizetype at = 0; at < whole.size(); ++at)
            for (const char odd : {'\0', '\x7F', '\xFF'}) {
                QByteArray bent = whole;
                bent[at] = odd;
                EXPECT_THAT(orientationOf(bent), testing::AllOf(testing::Ge(1), testing::Le(8)));
            }
        EXPECT_EQ(orientationOf(exif(isLittle, 9)), 1);
    }
    EXPECT_EQ(orientationOf(smallJPEG()), 1);
    EXPECT_EQ(orientationOf("\x89PNG"), 1);
}

TEST(ExifOrientation, pictureThatIsMarkedIsShownTurned) {
    const QByteArray marked = withOrientation(smallJPEG(), 6); // a quarter to the right
    EXPECT_EQ(orientationOf(marked), 6);
    EXPECT_EQ(withOrientation(smallJPEG(), 1), smallJPEG());
    const Application application; // tells where programs are
    const PictureDecoder decoder;
    const QImage turned = decoder.decode(marked, 256, {}).image;
    ASSERT_EQ(turned.size(), QSize(48, 96));
    EXPECT_GT(qRed(turned.pixel(24, 10)), 200) << "what was left is above";
    EXPECT_GT(qBlue(turned.pixel(24, 85)), 200);
    EXPECT_THROW((void)decoder.decode("no picture", 256, {}), PictureError);
}

TEST(PhoneThumbnail, comesTurnedAndWithoutThePhoto) {
    VirtualUSBBus bus;
    PluggedPhone phone(bus);
    const QByteArray photo = exif(true, 6) + smallJPEG() + QByteArray(5'000'000, 'x');
    phone.write(u"photo.jpg"_s, photo);
    phone.write(u"plain.jpg"_s, smallJPEG().left(200));
    MTPFileSystem files(bus, identityOf(phone.info), std::make_shared<PhoneQueue>());
    const FileItem item = require(files, u"/photo.jpg"_s, {});
    EXPECT_EQ(phoneThumbnail(files, item, {}), withOrientation(smallJPEG(), 6));
    EXPECT_EQ(phone.requests(getObject), 0U);
    EXPECT_EQ(phoneThumbnail(files, require(files, u"/plain.jpg"_s, {}), {}), std::nullopt);
    const std::size_t asked = phone.requests(getThumb);
    FileItem text = item;
    text.name = u"photo.txt"_s;
    EXPECT_EQ(phoneThumbnail(files, text, {}), std::nullopt);
    EXPECT_EQ(phone.requests(getThumb), asked);
}

} // namespace
} // namespace tessary
