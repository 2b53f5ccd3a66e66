#include "preview/decoding/PictureReader.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>

#include <algorithm>
#include <array>

namespace tessary {

namespace {

constexpr qint64 longestFile = 400'000'000; // bytes
constexpr qint64 maxPixels = 64'000'000;
constexpr qint64 maxJpegPixels = 256'000'000; // made smaller while it is read
constexpr int allocationLimit = 300;          // MB
constexpr std::array<const char*, 5> formats{"jpeg", "png", "webp", "gif", "bmp"};

QByteArray contentOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.isSequential() || file.size() > longestFile)
        throw PictureError("the file cannot be read");
    return file.readAll(); // read(n) takes n bytes of memory before it reads
}

QByteArray formatOf(const QByteArray& bytes) {
    QByteArray copy = bytes;
    QBuffer buffer(&copy);
    buffer.open(QIODevice::ReadOnly);
    const QByteArray found = QImageReader::imageFormat(&buffer);
    for (const char* format : formats)
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
    const bool isTurned = (reader.transformation() & QImageIOHandler::TransformationRotate90) != 0;
    picture.fullSize = isTurned ? size.transposed() : size;
    return picture;
}

} // namespace

void checkSize(const QSize& size, qint64 most) {
    if (size.width() <= 0 || size.height() <= 0 || qint64{size.width()} * size.height() > most)
        throw PictureError("the picture has too many pixels, or none");
}

QSize fitted(const QSize& size, int maxSide) {
    if (std::max(size.width(), size.height()) <= maxSide)
        return size;
    return size.scaled(maxSide, maxSide, Qt::KeepAspectRatio).expandedTo({1, 1});
}

Picture readPicture(const PictureRequest& request) {
    const int maxSide = std::clamp(request.maxSide, 1, maxPictureSide);
    const QByteArray bytes = contentOf(request.file);
    if (bytes.startsWith("%PDF-"))
        return readPdfPage(bytes, request.page, maxSide);
    if (isHeic(bytes))
        return readHeic(bytes, maxSide);
    return readImage(bytes, maxSide);
}

} // namespace tessary
