#pragma once

#include "FuzzTarget.h"
#include "Sayings.h"
#include "preview/Picture.h"

#include <exception>

namespace tessary {

/// What a decoding process makes of a file, without its sandbox: a picture that the window takes,
/// or an error.
template <typename Decode>
void expectPictureOrError(Decode decode) {
    constexpr int side = 160; // as for a thumbnail
    try {
        const Picture picture = decode(side);
        require(picture.image.width() <= side && picture.image.height() <= side);
        const auto taken = decodePicture(encodePicture(picture));
        require(taken && taken->image.size() == picture.image.size() &&
                taken->pages == picture.pages);
    } catch (const std::exception& error) {
        noteSaying(error.what());
    }
}

} // namespace tessary
