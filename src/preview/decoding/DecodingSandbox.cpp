#include "preview/decoding/DecodingSandbox.h"

#include "platform/sandbox/Sandbox.h"
#include "preview/PictureDecoder.h"
#include "preview/decoding/PictureReader.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>

#include <unistd.h>

namespace tessary {

namespace {

constexpr std::chrono::seconds maxProcessorTime{15};
constexpr qint64 maxMemory = qint64{1} << 30; // bytes of address space

/// Where systems keep fonts, their list, and what PDF needs to know of foreign scripts. Nothing of
/// this user's own.
const std::vector<QByteArray> publicFiles{
    "/etc/fonts",
    "/usr/share/fonts",
    "/usr/local/share/fonts",
    "/usr/share/fontconfig",
    "/var/cache/fontconfig",
    "/usr/share/poppler",
};

/// Each format's plugin is loaded with the first picture of that kind.
void loadPlugins() {
    QBuffer nothing;
    nothing.open(QIODevice::ReadOnly);
    for (const char* format : pictureFormats)
        (void)QImageReader(&nothing, format).canRead();
}

} // namespace

void enterDecodingSandbox(int input, int output) {
    loadPlugins();
    SandboxRules rules;
    rules.descriptors = {input, output, STDERR_FILENO};
    rules.memory = maxMemory;
    rules.processorTime = maxProcessorTime;
    rules.wallTime = std::chrono::duration_cast<std::chrono::seconds>(PictureDecoder::defaultLimit);
    rules.readable = publicFiles;
    enterSandbox(rules);
}

QByteArray restOf(int descriptor) {
    QFile file;
    if (!file.open(descriptor, QIODevice::ReadOnly | QIODevice::Unbuffered) ||
        file.isSequential() || file.size() > PictureDecoder::longestFile)
        throw PictureError("the file cannot be read");
    return file.readAll(); // read(n) takes n bytes of memory before it reads
}

} // namespace tessary
