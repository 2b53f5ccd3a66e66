#include "DecodedPicture.h"
#include "base/local/FileHandle.h"
#include "preview/film/FilmReader.h"

extern "C" {
#include <libavutil/log.h>
}

#include <sys/mman.h>
#include <unistd.h>

using namespace tessary;

namespace {

void listen(void* /*context*/, int /*level*/, const char* format, va_list /*arguments*/) {
    noteSaying(format);
}

} // namespace

/// Films, in the libraries that decode their first picture. Those of an odd length go on behind
/// what was fetched of them.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr off_t missing = 1 << 20;
    av_log_set_callback(listen);
    const FileHandle film(::memfd_create("film", MFD_CLOEXEC));
    require(film.isOpen() && ::write(film.get(), data, size) == static_cast<ssize_t>(size));
    require(::ftruncate(film.get(), static_cast<off_t>(size) + (size % 2 == 1 ? missing : 0)) == 0);
    expectPictureOrError([&film](int side) { return readFirstPicture(film.get(), side); });
    return 0;
}
