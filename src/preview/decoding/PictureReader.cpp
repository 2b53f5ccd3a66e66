#include "preview/decoding/PictureReader.h"

#include <QBuffer>
#include <QImageReader>

#include <algorithm>

namespace tessary {

namespace {

constexpr qint64 maxPixels = 64'000'000;
constexpr qint64 maxJpegPixels = 256'000'000; // made smaller while it is read
constexpr int allocationLimit = 300;          // MB

QByteArray formatOf(const QByteArray& bytes) {
    QByteArray copy = bytes;
    QBuffer buffer(&copy);
    buffer.open(QIODevice::ReadOnly);
    const QByteArray found = QImageReader::imageFormat(&buffer);
    for (const char* format : pictureFormats)
        if (found == format)
            return found;
    throw PictureError("not a picture of a known kind");
}

Picture readImage(const QByteArray& bytes, int maxSide) {
    const QByteArray format = formatOf(bytes);
    QByteArray copy = bytes;
    QBuffer buffer(&copy);
    buffer.open(QIODevice::ReadOnly);
    QImageReader::setAllocationLimit(allocationLimit);
    QImageReader reader(&buffer, format);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    checkSize(size, format == "jpeg" ? maxJpegPixels : maxPixels);
    const QSize target = fitted(size, maxSide);
    if (target != size)
        reader.setScaledSize(target);
    Picture picture;
    picture.image = reader.read();
    if (picture.image.isNull())
        throw PictureError("the picture is damaged");
    // The first picture of a GIF can be larger than the file says that it is.
    if (const QSize shown = fitted(picture.image.size(), maxSide); shown != picture.image.size())
        picture.image =
            picture.image.scaled(shown, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const bool isTurned = (reader.transformation() & QImageIOHandler::TransformationRotate90) != 0;
    picture.fullSize = isTurned ? size.transposed() : size;
    return picture;
}

} // namespace

Picture readPicture(const QByteArray& bytes, int maxSide, int page) {
    const int side = std::clamp(maxSide, 1, maxPictureSide);
    if (bytes.startsWith("%PDF-"))
        return readPdfPage(bytes, page, side);
    if (isHeic(bytes))
        return readHeic(bytes, side);
    return readImage(bytes, side);
}

} // namespace tessary
