#pragma once

#include "preview/Picture.h"

namespace tessary {

/// Decodes a file of one of the known kinds (JPEG, PNG, WebP, GIF, BMP, HEIC, PDF), by its content
/// and not by its name. PictureError for all else: a file or a picture that is too large is refused
/// before its pixels are made. Runs foreign libraries on foreign bytes: call it in a process that
/// has nothing to lose.
[[nodiscard]] Picture readPicture(const PictureRequest& request);

/// The two kinds that have libraries of their own. `bytes` is the whole file.
[[nodiscard]] bool isHeic(const QByteArray& bytes);
[[nodiscard]] Picture readHeic(const QByteArray& bytes, int maxSide);
[[nodiscard]] Picture readPdfPage(const QByteArray& bytes, int page, int maxSide);

/// PictureError when a picture has too many pixels, or none.
void checkSize(const QSize& size, qint64 maxPixels);

/// `size` made to fit into a square, never larger; sides are at least 1.
[[nodiscard]] QSize fitted(const QSize& size, int maxSide);

} // namespace tessary
