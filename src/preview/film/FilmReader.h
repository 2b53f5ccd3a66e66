#pragma once

#include "preview/Picture.h"

namespace tessary {

/// Decodes the first picture of a film of the kinds that phones write (mp4, mov, 3gp, Matroska and
/// WebM, with H.264, HEVC, MPEG-4, H.263, VP8, VP9 or AV1 in them), by its content and not by its
/// name: upright, and made to fit into a square of `maxSide` pixels.
///
/// `film` is an open file of which parts may be missing: its holes. What lies in one cannot be
/// read, and is not taken for zeros. PictureError where there is no picture to be had. Runs foreign
/// libraries on foreign bytes: call it in a process that has nothing to lose.
[[nodiscard]] Picture readFirstPicture(int film, int maxSide);

} // namespace tessary
