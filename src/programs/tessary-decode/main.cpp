// tessary-decode MAXSIDE PAGE: decodes the picture or document on standard input, a file, and
// writes the picture or page to standard output in the form of encodePicture(). Not for people: the
// window starts it for each picture that it shows.

#include "preview/DecoderProgram.h"
#include "preview/decoding/DecodingSandbox.h"
#include "preview/decoding/PictureReader.h"

#include <QCoreApplication>

#include <unistd.h>

using namespace tessary;

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    runDecoder(argc, argv, [](int maxSide, int page) {
        enterDecodingSandbox();
        return readPicture(restOf(STDIN_FILENO), maxSide, page);
    });
}
