#include "preview/DecoderProgram.h"

#include "preview/PictureDecoder.h"

#include <cstdio>
#include <cstdlib>
#include <exception>

#include <unistd.h>

namespace tessary {

namespace {

/// The window and transfers go first; a machine that is busy otherwise still lets it come to its
/// end.
constexpr int politeness = 5;

/// Nothing is tidied up at the end: the libraries' own ends may want what is not there any more.
[[noreturn]] void end(int status) {
    std::fflush(stderr);
    _exit(status);
}

} // namespace

SandboxRules decoderRules() {
    SandboxRules rules;
    rules.descriptors = {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO};
    rules.memory = qint64{1} << 30;
    rules.processorTime = std::chrono::seconds(15);
    rules.wallTime = std::chrono::duration_cast<std::chrono::seconds>(PictureDecoder::defaultLimit);
    return rules;
}

void runDecoder(int argc, char** argv,
                const std::function<Picture(int maxSide, int page)>& decode) {
    (void)!nice(politeness);
    constexpr int wanted = 3;
    if (argc != wanted) {
        std::fprintf(stderr, "usage: %s MAXSIDE PAGE <FILE\n", argv[0]);
        end(2);
    }
    try {
        const Picture picture = decode(std::atoi(argv[1]), std::atoi(argv[2]));
        end(writePicture(picture, STDOUT_FILENO) ? 0 : 1);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", argv[0], error.what());
        end(1);
    }
}

} // namespace tessary
