#include "transfer/local/LocalContent.h"

#include "base/threads/CancellationError.h"
#include "transfer/local/LocalFolder.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <memory>

namespace tessary {

namespace {

constexpr std::size_t pieceSize = 256 * 1024;

/// Fills `into` from an open file and says how much of it; 0 only at its end.
std::size_t readAt(const FileHandle& file, const QString& path, qint64 offset,
                   std::span<std::byte> into) {
    while (true) {
        const ssize_t count = ::pread(file.get(), into.data(), into.size(), offset);
        if (count >= 0)
            return static_cast<std::size_t>(count);
        if (errno != EINTR)
            throw localFailure(LocalError::cannotRead, path, errno);
    }
}

/// Has the disk fetch what is drawn next while what was drawn goes its way.
class DiskAhead {
public:
    explicit DiskAhead(qint64 offset) : asked_(offset) {}

    void reach(const FileHandle& file, qint64 offset) {
        constexpr qint64 step = qint64{1} << 20;
        constexpr qint64 ahead = 4 * step;
        for (; asked_ < offset + ahead; asked_ += step)
            (void)::posix_fadvise(file.get(), asked_, step, POSIX_FADV_WILLNEED);
    }

private:
    qint64 asked_;
};

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
        const std::size_t count =
            readAt(file, path, range.offset + done, std::span(buffer).first(wanted));
        if (count == 0)
            break;
        sink(ByteView(buffer).first(count));
        done += static_cast<qint64>(count);
    }
    return done;
}

ByteSource drawContent(FileHandle file, const QString& path, qint64 offset,
                       const std::stop_token& stop) {
    return [file = std::make_shared<FileHandle>(std::move(file)), path, offset, stop,
            disk = DiskAhead(offset)](std::span<std::byte> into) mutable {
        throwIfStopped(stop);
        disk.reach(*file, offset);
        const std::size_t count = readAt(*file, path, offset, into);
        offset += static_cast<qint64>(count);
        return count;
    };
}

void writeContent(const FileHandle& file, const QString& path, qint64 done,
                  const ByteSource& content, const ByteProgress& progress,
                  const std::stop_token& stop) {
    Bytes buffer(pieceSize);
    for (ByteView bytes = content.next(buffer); !bytes.empty(); bytes = content.next(buffer)) {
        throwIfStopped(stop);
        for (ByteView rest = bytes; !rest.empty();) {
            const ssize_t step = ::write(file.get(), rest.data(), rest.size());
            if (step < 0 && errno != EINTR)
                throw localFailure(LocalError::cannotWrite, path, errno);
            rest = rest.subspan(step < 0 ? 0 : static_cast<std::size_t>(step));
        }
        done += static_cast<qint64>(bytes.size());
        if (progress)
            progress(done);
    }
}

} // namespace tessary
