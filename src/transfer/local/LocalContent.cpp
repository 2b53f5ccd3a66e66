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

/// A file that is read as its bytes are wanted.
class Drawing {
public:
    Drawing(FileHandle file, QString path, qint64 offset, std::stop_token stop)
        : file_(std::move(file)),
          path_(std::move(path)),
          stop_(std::move(stop)),
          offset_(offset),
          fetched_(offset) {}

    std::size_t next(std::span<std::byte> into) {
        throwIfStopped(stop_);
        fetchAhead();
        const std::size_t count = readAt(file_, path_, offset_, into);
        offset_ += static_cast<qint64>(count);
        return count;
    }

private:
    /// Has the disk fetch what comes next while what was drawn goes its way.
    void fetchAhead() {
        constexpr qint64 step = 128 * 1024; // no disk takes less at a time, some no more
        constexpr qint64 ahead = qint64{4} << 20;
        for (; fetched_ < offset_ + ahead; fetched_ += step)
            (void)::posix_fadvise(file_.get(), fetched_, step, POSIX_FADV_WILLNEED);
    }

    const FileHandle file_;
    const QString path_;
    const std::stop_token stop_;
    qint64 offset_;
    qint64 fetched_; ///< up to here
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
    return [drawing = std::make_shared<Drawing>(std::move(file), path, offset, stop)](
               std::span<std::byte> into) { return drawing->next(into); };
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
