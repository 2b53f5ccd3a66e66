// tessary-film MAXSIDE PAGE: decodes the first picture of the film on standard input, a file of
// which parts may be missing, and writes it to standard output in the form of encodePicture(). A
// film has one page, 0. Not for people: the window starts it for each film that it shows.

#include "preview/DecoderProgram.h"
#include "preview/film/FilmReader.h"

#include <unistd.h>

using namespace tessary;

int main(int argc, char** argv) {
    runDecoder(argc, argv, [](int maxSide, int /*page*/) {
        enterSandbox(decoderRules());
        return readFirstPicture(STDIN_FILENO, maxSide);
    });
}
