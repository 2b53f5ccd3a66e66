#include "DecodedPicture.h"
#include "preview/decoding/PictureReader.h"

#include <QCoreApplication>

using namespace tessary;

/// Pictures and documents of all kinds, in the libraries that decode them.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static int argumentCount = 1;
    static char name[] = "FuzzPictureReader";
    static std::array<char*, 2> arguments{name, nullptr};
    static const QCoreApplication application(argumentCount, arguments.data()); // finds plugins
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    expectPictureOrError([&bytes](int side) { return readPicture(bytes, side, 0); });
    return 0;
}
