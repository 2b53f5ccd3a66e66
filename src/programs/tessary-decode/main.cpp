// tessary-decode MAXSIDE PAGE: decodes the picture or document on standard input, a file, and
// writes the picture or page to standard output in the form of encodePicture(). Not for people: the
// window starts it for each picture that it shows.

#include "preview/decoding/DecodingSandbox.h"
#include "preview/decoding/PictureReader.h"

#include <QCoreApplication>

#include <cstdio>
#include <exception>

#include <unistd.h>

using namespace tessary;

namespace {

constexpr int politeness = 10; // the window and transfers go first

/// Nothing is tidied up at the end: the libraries' own ends may want what is not there any more.
[[noreturn]] void end(int status) {
    std::fflush(stderr);
    _exit(status);
}

} // namespace

int main(int argc, char** argv) {
    (void)!nice(politeness);
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    constexpr qsizetype wanted = 3;
    if (arguments.size() != wanted) {
        std::fputs("usage: tessary-decode MAXSIDE PAGE <FILE\n", stderr);
        return 2;
    }
    try {
        enterDecodingSandbox(STDIN_FILENO, STDOUT_FILENO);
        const Picture picture =
            readPicture(restOf(STDIN_FILENO), arguments[1].toInt(), arguments[2].toInt());
        end(writePicture(picture, STDOUT_FILENO) ? 0 : 1);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "tessary-decode: %s\n", error.what());
        end(1);
    }
}
