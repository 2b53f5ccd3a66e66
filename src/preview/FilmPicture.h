#pragma once

#include "phone/PhoneFileSystem.h"
#include "preview/PictureDecoder.h"

namespace tessary {

/// At most so many bytes of a film are fetched for its first picture.
inline constexpr qint64 filmPartsLimit = 8 << 20;

/// A file in memory, as long as the film, that holds those parts of it that its first picture is in
/// or is found by, and holes for all else: the beginning, and in MP4 and its kin the index, which
/// cameras write behind the film. The film is hostile: what it says of itself decides only which
/// parts are fetched. PictureError when they are too many, or the phone cannot read parts of a
/// larger film; else throws as PhoneFileSystem::read().
[[nodiscard]] FileHandle fetchFilmParts(PhoneFileSystem& files, const FileItem& film,
                                        const Call& call);

/// The decoder of such parts.
[[nodiscard]] PictureDecoder filmDecoder();

/// The first picture of a film on a phone, made to fit into a square of `maxSide` pixels. Throws as
/// fetchFilmParts() and PictureDecoder::decode(). Blocks: not for the main thread.
[[nodiscard]] Picture firstPictureOf(PhoneFileSystem& files, const FileItem& film, int maxSide,
                                     const Call& call);

} // namespace tessary
