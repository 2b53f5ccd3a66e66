#include "preview/Picture.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

#include <unistd.h>

namespace tessary {

namespace {

constexpr QByteArrayView magic("TPIC");
constexpr qsizetype headerSize = 24;
constexpr qsizetype pixelSize = 4;
constexpr int maxPages = 1'000'000;

} // namespace

QByteArray encodePicture(const Picture& picture) {
    const QImage image = picture.image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    QByteArray bytes = magic.toByteArray();
    for (const int number : {image.width(), image.height(), picture.pages, picture.fullSize.width(),
                             picture.fullSize.height()}) {
        const quint32 little = qToLittleEndian(static_cast<quint32>(std::max(number, 0)));
        bytes.append(reinterpret_cast<const char*>(&little), sizeof little);
    }
    for (int y = 0; y < image.height(); ++y)
        bytes.append(reinterpret_cast<const char*>(image.constScanLine(y)),
                     image.width() * pixelSize);
    return bytes;
}

std::optional<Picture> decodePicture(const QByteArray& bytes) {
    if (bytes.size() < headerSize || !bytes.startsWith(magic))
        return std::nullopt;
    std::array<quint32, 5> numbers{};
    for (std::size_t i = 0; i < numbers.size(); ++i)
        numbers[i] =
            qFromLittleEndian<quint32>(bytes.constData() + magic.size() + i * sizeof(quint32));
    const auto [width, height, pages, fullWidth, fullHeight] = numbers;
    const auto isSide = [](quint32 side) { return side > 0 && side <= quint32{maxPictureSide}; };
    if (!isSide(width) || !isSide(height) || pages == 0 || pages > quint32{maxPages})
        return std::nullopt;
    const qsizetype rowSize = static_cast<qsizetype>(width) * pixelSize;
    if (bytes.size() != headerSize + static_cast<qsizetype>(height) * rowSize)
        return std::nullopt;
    Picture picture;
    picture.image = QImage(static_cast<int>(width), static_cast<int>(height),
                           QImage::Format_ARGB32_Premultiplied);
    if (picture.image.isNull())
        return std::nullopt;
    for (int y = 0; y < picture.image.height(); ++y)
        std::memcpy(picture.image.scanLine(y), bytes.constData() + headerSize + y * rowSize,
                    static_cast<std::size_t>(rowSize));
    constexpr quint32 longest = 1U << 24U;
    picture.fullSize = QSize(static_cast<int>(std::min(fullWidth, longest)),
                             static_cast<int>(std::min(fullHeight, longest)));
    picture.pages = static_cast<int>(pages);
    return picture;
}

bool writePicture(const Picture& picture, int descriptor) {
    const QByteArray bytes = encodePicture(picture);
    for (qsizetype written = 0; written < bytes.size();) {
        const auto step = ::write(descriptor, bytes.constData() + written,
                                  static_cast<std::size_t>(bytes.size() - written));
        if (step < 0 && errno != EINTR)
            return false;
        if (step > 0)
            written += step;
    }
    return true;
}

void checkSize(const QSize& size, qint64 most) {
    if (size.width() <= 0 || size.height() <= 0 || qint64{size.width()} * size.height() > most)
        throw PictureError("the picture has too many pixels, or none");
}

QSize fitted(const QSize& size, int maxSide) {
    if (std::max(size.width(), size.height()) <= maxSide)
        return size;
    return size.scaled(maxSide, maxSide, Qt::KeepAspectRatio).expandedTo({1, 1});
}

} // namespace tessary
