#include "preview/decoding/DecodingSandbox.h"

#include "preview/DecoderProgram.h"
#include "preview/PictureDecoder.h"
#include "preview/decoding/PictureReader.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>

namespace tessary {

namespace {

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

void enterDecodingSandbox() {
    loadPlugins();
    SandboxRules rules = decoderRules();
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
