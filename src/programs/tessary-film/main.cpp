// tessary-film MAXSIDE PAGE: decodes the first picture of the film on standard input, a file of
// which parts may be missing, and writes it to standard output in the form of encodePicture(). A
// film has one page, 0. Not for people: the window starts it for each film that it shows.

#include "platform/sandbox/Sandbox.h"
#include "preview/PictureDecoder.h"
#include "preview/film/FilmReader.h"

#include <cstdio>
#include <cstdlib>
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
    constexpr int wanted = 3;
    if (argc != wanted) {
        std::fputs("usage: tessary-film MAXSIDE PAGE <FILE\n", stderr);
        return 2;
    }
    try {
        SandboxRules rules;
        rules.descriptors = {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO};
        rules.memory = qint64{1} << 30;
        rules.processorTime = std::chrono::seconds(15);
        rules.wallTime =
            std::chrono::duration_cast<std::chrono::seconds>(PictureDecoder::defaultLimit);
        enterSandbox(rules);
        const Picture picture = readFirstPicture(STDIN_FILENO, std::atoi(argv[1]));
        end(writePicture(picture, STDOUT_FILENO) ? 0 : 1);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "tessary-film: %s\n", error.what());
        end(1);
    }
}
