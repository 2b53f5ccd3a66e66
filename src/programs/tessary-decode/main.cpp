// tessary-decode FILE MAXSIDE PAGE: decodes one picture or page and writes it to standard output in
// the form of encodePicture(). Not for people: the window starts it for each picture that it shows.

#include "preview/decoding/PictureReader.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>
#include <exception>

#include <sys/resource.h>
#include <unistd.h>

using namespace tessary;

namespace {

constexpr rlim_t maxCpuSeconds = 15;
constexpr rlim_t maxMemory = rlim_t{1} << 30U; // bytes of address space
constexpr int politeness = 10;                 // the window and transfers go first

/// `Resource` differs between systems.
template <typename Resource>
void limit(Resource resource, rlim_t most) {
    const rlimit both{most, most};
    (void)setrlimit(resource, &both);
}

/// Takes from this process what a picture has no need of.
void limitThisProcess() {
    limit(RLIMIT_CPU, maxCpuSeconds);
    limit(RLIMIT_CORE, 0);
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
    limit(RLIMIT_AS, maxMemory);
#endif
    (void)!nice(politeness);
}

} // namespace

int main(int argc, char** argv) {
    limitThisProcess();
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    constexpr qsizetype wanted = 4;
    if (arguments.size() != wanted) {
        std::fputs("usage: tessary-decode FILE MAXSIDE PAGE\n", stderr);
        return 2;
    }
    try {
        const Picture picture =
            readPicture({arguments[1], arguments[2].toInt(), arguments[3].toInt()});
        const QByteArray bytes = encodePicture(picture);
        QFile output;
        if (!output.open(stdout, QIODevice::WriteOnly) || output.write(bytes) != bytes.size() ||
            !output.flush())
            return 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "tessary-decode: %s\n", error.what());
        return 1;
    }
    return 0;
}
