#include "FuzzTarget.h"
#include "preview/Picture.h"
#include "preview/TextSample.h"

using namespace tessary;

/// What the decoding process hands back, should a picture have taken it over, and texts.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    if (const auto picture = decodePicture(bytes)) {
        require(!picture->image.isNull() && picture->pages >= 1);
        require(picture->image.width() <= maxPictureSide &&
                picture->image.height() <= maxPictureSide);
    }
    if (const auto sample = textSampleOf(bytes))
        require(sample->text.size() <= TextSample::maxBytes);
    return 0;
}
