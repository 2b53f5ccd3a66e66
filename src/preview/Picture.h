#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>

#include <optional>
#include <stdexcept>

namespace tessary {

/// The longest side that a decoded picture may have, in pixels.
inline constexpr int maxPictureSide = 4096;

/// What is to be decoded.
struct PictureRequest {
    QString file;
    int maxSide = maxPictureSide; ///< pixels; a larger picture is made smaller
    int page = 0;                 ///< of a document, from 0
};

/// A decoded picture, or a page of a document.
struct Picture {
    QImage image;   ///< not null
    QSize fullSize; ///< in the file, pixels; empty for a page
    int pages = 1;
};

/// A file that cannot be decoded, or only with more memory or time than it may have.
class PictureError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// One that was not decoded in time: on a busy machine it may be the next time.
class PictureTimeoutError : public PictureError {
public:
    using PictureError::PictureError;
};

/// A picture as bytes for the way between two processes of one machine; all numbers little-endian:
///
///      0  4  "TPIC"
///      4  4  width      16  4  width in the file
///      8  4  height     20  4  height in the file
///     12  4  pages      24     rows of 4 * width bytes, as of QImage::Format_ARGB32_Premultiplied
[[nodiscard]] QByteArray encodePicture(const Picture& picture);

/// Nothing for bytes of any other form and for a picture with a side above maxPictureSide.
[[nodiscard]] std::optional<Picture> decodePicture(const QByteArray& bytes);

/// Writes encodePicture() of it to a pipe. False when that cannot be done.
[[nodiscard]] bool writePicture(const Picture& picture, int descriptor);

/// PictureError when a picture has too many pixels, or none. Pure.
void checkSize(const QSize& size, qint64 maxPixels);

/// `size` made to fit into a square, never larger; sides are at least 1. Pure.
[[nodiscard]] QSize fitted(const QSize& size, int maxSide);

} // namespace tessary
