#pragma once

#include "phone/PhoneFileSystem.h"
#include "preview/Picture.h"

namespace tessary {

/// At most so many bytes of a film are fetched for its first picture.
inline constexpr qint64 filmPartsLimit = 8 << 20;

/// The first picture of a film on a phone, made to fit into a square of `maxSide` pixels. The film
/// is hostile: what it says of itself decides only which parts are fetched. PictureError where
/// there is no picture to be had, too many parts are needed for it, or the phone cannot read parts
/// of a larger film; else throws as PhoneFileSystem::read(). Blocks: not for the main thread.
[[nodiscard]] Picture firstPictureOf(PhoneFileSystem& files, const FileItem& film, int maxSide,
                                     const Call& call);

} // namespace tessary
