#include "transfer/local/LocalContent.h"

#include "base/threads/CancellationError.h"
#include "transfer/local/LocalFolder.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace tessary {

namespace {

constexpr std::size_t pieceSize = 256 * 1024;

} // namespace

qint64 readContent(const FileHandle& file, const QString& path, ByteRange range,
                   const ByteSink& sink, const std::stop_token& stop) {
    Bytes buffer(pieceSize);
    qint64 done = 0;
    while (range.length < 0 || done < range.length) {
        throwIfStopped(stop);
        std::size_t wanted = buffer.size();
        if (range.length >= 0)
            wanted = std::min(wanted, static_cast<std::size_t>(range.length - done));
        const ssize_t count = ::pread(file.get(), buffer.data(), wanted, range.offset + done);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            throw localFailure(LocalError::cannotRead, path, errno);
        if (count == 0)
            break;
        sink(ByteView(buffer).first(static_cast<std::size_t>(count)));
        done += count;
    }
    return done;
}

void writeContent(const FileHandle& file, const QString& path, qint64 done,
                  const ByteSource& content, const ByteProgress& progress,
                  const std::stop_token& stop) {
    Bytes buffer(pieceSize);
    while (const std::size_t count = content(buffer)) {
        throwIfStopped(stop);
        for (std::size_t written = 0; written < count;) {
            const ssize_t step = ::write(file.get(), buffer.data() + written, count - written);
            if (step < 0 && errno != EINTR)
                throw localFailure(LocalError::cannotWrite, path, errno);
            written += step < 0 ? 0 : static_cast<std::size_t>(step);
        }
        done += static_cast<qint64>(count);
        if (progress)
            progress(done);
    }
}

} // namespace tessary
