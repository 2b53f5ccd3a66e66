// tessary-iphone VERSION UDID: speaks to one iPhone for the program that started it, which asks on
// standard input, a socket, and shares its memory as descriptor 3. Not for people.

#include "ios/helper/server/HelperServer.h"
#include "ios/helper/server/IPhoneSandbox.h"
#include "platform/process/SharedMemory.h"

#include <csignal>
#include <cstdio>
#include <exception>

#include <sys/prctl.h>
#include <unistd.h>

using namespace tessary;

int main(int argc, char** argv) {
    constexpr int wanted = 3;
    if (argc != wanted) {
        std::fputs("usage: tessary-iphone VERSION UDID\n", stderr);
        return 2;
    }
    // Nobody is left to ask once the thread that started it is gone.
    if (prctl(PR_SET_PDEATHSIG, SIGKILL) != 0 || std::signal(SIGPIPE, SIG_IGN) == SIG_ERR)
        return 1;
    try {
        auto content = SharedMemory::map(contentDescriptor, contentMemory);
        enterIPhoneSandbox();
        HelperServer(QString::fromUtf8(argv[2]), QByteArray(argv[1]).toInt(), std::move(content))
            .serve(STDIN_FILENO);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "tessary-iphone: %s\n", error.what());
        return 1;
    }
    return 0;
}
