#pragma once

#include "preview/Picture.h"

#include <array>

namespace tessary {

/// The formats of pictures that Qt reads for us, by its names for them.
inline constexpr std::array<const char*, 5> pictureFormats{"jpeg", "png", "webp", "gif", "bmp"};

/// Decodes a file of one of the known kinds (pictureFormats, HEIC, PDF), by its content and not by
/// its name, made to fit into a square of `maxSide` pixels; of a document the page `page`, from 0.
/// PictureError for all else: a picture that is too large is refused before its pixels are made.
/// Runs foreign libraries on foreign bytes: call it in a process that has nothing to lose.
[[nodiscard]] Picture readPicture(const QByteArray& bytes, int maxSide, int page);

/// The two kinds that have libraries of their own.
[[nodiscard]] bool isHeic(const QByteArray& bytes);
[[nodiscard]] Picture readHeic(const QByteArray& bytes, int maxSide);
[[nodiscard]] Picture readPdfPage(const QByteArray& bytes, int page, int maxSide);

} // namespace tessary
