#pragma once

#include "base/hash/ContentHash.h"
#include "phone/PhoneFileSystem.h"
#include "transfer/copy/Spool.h"

#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>
#include <optional>
#include <thread>

namespace tessary {

/// The content of a file to be drawn from. Small files are read into memory first; large ones are
/// drawn from their file system, or, where that pushes them, read by a thread that stays a few MiB
/// ahead. Drawn from by one thread.
///
/// It is held to its announced size: PhoneError::wrongSize for a file that ends before, or goes on
/// for more than the slack after it.
class FileStream {
public:
    /// What a file may have grown by since it was listed.
    static constexpr qint64 slack = 1024 * 1024;
    /// What a thread reads before it is drawn.
    static constexpr qint64 mostAhead = 4 * 1024 * 1024;

    enum class Way {
        ahead,     ///< reading while it is written
        readFirst, ///< no reading while something is written: both may be the same phone's
    };

    /// Begins at `offset` of the file, 0 where ranges cannot be read.
    FileStream(PhoneFileSystem& from, const FileItem& file, Way way, qint64 mayGrowBy,
               const Call& call, qint64 offset = 0);
    /// Ends the reading.
    ~FileStream();
    FileStream(const FileStream&) = delete;
    FileStream& operator=(const FileStream&) = delete;

    /// The next bytes; 0 once all were drawn. Throws what the reading threw, and
    /// CancellationError.
    std::size_t read(std::span<std::byte> into);
    /// The same as a source, for as long as the stream lives.
    [[nodiscard]] ByteSource source();
    /// From now on what is drawn is hashed, after what lies before the offset.
    void beginHash(ContentHash before) {
        hash_ = std::move(before);
    }
    /// SHA-256, after beginHash(). Once, when all was drawn.
    [[nodiscard]] QByteArray hash() {
        return hash_->finish();
    }

private:
    void fetch(const std::function<void(ByteView)>& sink, const Call& call);
    void fetchAhead(const std::stop_token& stop);
    void put(ByteView bytes, const std::stop_token& stop);
    [[nodiscard]] std::size_t takeAhead(std::span<std::byte> into);
    [[nodiscard]] ByteView lendAhead();
    [[nodiscard]] bool awaitPiece();
    [[nodiscard]] std::size_t drawHere(std::span<std::byte> into);
    [[nodiscard]] Error wrongSize(qint64 size) const;

    PhoneFileSystem& from_;
    const FileItem file_;
    const qint64 offset_;
    const qint64 announced_; ///< from the offset on
    const qint64 most_;
    const Call call_;
    std::optional<ContentHash> hash_;
    Spool spool_;           ///< all of it, unless one of the two below has it
    ByteSource source_;     ///< of a large file that can be drawn
    qint64 drawnBytes_ = 0; ///< from `source_`
    Bytes piece_;           ///< the one that is drawn from, of what `thread_` has read
    std::size_t taken_ = 0; ///< bytes of it that were drawn

    std::mutex mutex_; ///< guards the five below
    std::condition_variable_any changed_;
    std::deque<Bytes> waiting_;
    std::vector<Bytes> used_; ///< drawn pieces, whose memory the next ones take
    qint64 waitingBytes_ = 0;
    bool hasEnded_ = false;
    std::exception_ptr failure_;
    std::jthread thread_;
};

} // namespace tessary
