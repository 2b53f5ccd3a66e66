#include "transfer/copy/FileStream.h"

#include "base/text/ByteCount.h"
#include "base/threads/CancellationError.h"
#include "base/threads/CombinedStopToken.h"
#include "base/threads/ThreadName.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tessary {

namespace {

constexpr qint64 smallFile = 512 * 1024; // a thread for each would cost more than it gains

} // namespace

FileStream::FileStream(PhoneFileSystem& from, const FileItem& file, Way way, qint64 mayGrowBy,
                       const Call& call, qint64 offset)
    : from_(from),
      file_(file),
      offset_(offset),
      announced_(std::max<qint64>(file.size, 0) - offset),
      most_(addByteCounts(announced_, mayGrowBy)),
      call_(call) {
    if (way == Way::readFirst || announced_ <= smallFile)
        fetch([this](ByteView bytes) { spool_.append(bytes); }, call_);
    else if (source_ = from_.draw(file_, offset_, call_); !source_)
        thread_ = std::jthread([this](const std::stop_token& stop) { fetchAhead(stop); });
}

FileStream::~FileStream() {
    thread_.request_stop();
}

Error FileStream::wrongSize(qint64 size) const {
    return {PhoneError::wrongSize, {file_.path, offset_ + size, offset_ + announced_}};
}

void FileStream::fetch(const std::function<void(ByteView)>& sink, const Call& call) {
    qint64 done = 0;
    from_.read(
        file_, {offset_, -1},
        [&](ByteView bytes) {
            done = addByteCounts(done, static_cast<qint64>(bytes.size()));
            if (done > most_)
                throw wrongSize(done);
            sink(bytes);
        },
        call);
    if (done < announced_)
        throw wrongSize(done);
}

void FileStream::fetchAhead(const std::stop_token& stop) {
    nameCurrentThread("tessary-read");
    std::exception_ptr failure;
    try {
        const CombinedStopToken either(stop, call_.stop);
        fetch([&](ByteView bytes) { put(bytes, either.token()); }, {either.token(), call_.urgency});
    } catch (...) {
        failure = std::current_exception();
    }
    const std::scoped_lock lock(mutex_);
    failure_ = failure;
    hasEnded_ = true;
    changed_.notify_all();
}

void FileStream::put(ByteView bytes, const std::stop_token& stop) {
    Bytes piece;
    {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, stop, [this] { return waitingBytes_ < mostAhead; });
        throwIfStopped(stop);
        if (!used_.empty()) {
            piece = std::move(used_.back());
            used_.pop_back();
        }
    }
    piece.assign(bytes.begin(), bytes.end()); // while others draw
    const std::scoped_lock lock(mutex_);
    waitingBytes_ += static_cast<qint64>(piece.size());
    waiting_.push_back(std::move(piece));
    changed_.notify_all();
}

/// False at the end.
bool FileStream::awaitPiece() {
    std::unique_lock lock(mutex_);
    taken_ = 0;
    if (piece_.capacity() > 0)
        used_.push_back(std::exchange(piece_, {}));
    changed_.wait(lock, call_.stop, [this] { return hasEnded_ || !waiting_.empty(); });
    throwIfStopped(call_.stop);
    if (failure_)
        std::rethrow_exception(failure_);
    if (waiting_.empty())
        return false;
    piece_ = std::move(waiting_.front());
    waiting_.pop_front();
    waitingBytes_ -= static_cast<qint64>(piece_.size());
    changed_.notify_all();
    return true;
}

ByteView FileStream::lendAhead() {
    while (taken_ == piece_.size())
        if (!awaitPiece())
            return {};
    return ByteView(piece_).subspan(taken_);
}

std::size_t FileStream::takeAhead(std::span<std::byte> into) {
    const ByteView bytes = lendAhead();
    const std::size_t count = std::min(into.size(), bytes.size());
    std::ranges::copy(bytes.first(count), into.begin());
    taken_ += count;
    return count;
}

std::size_t FileStream::drawHere(std::span<std::byte> into) {
    const std::size_t count = source_(into);
    drawnBytes_ = addByteCounts(drawnBytes_, static_cast<qint64>(count));
    std::array<std::byte, 1> more{};
    // Who takes no more than was announced would not ask again.
    const bool isMore = drawnBytes_ == most_ && source_(more) > 0;
    if (isMore || drawnBytes_ > most_ || (count == 0 && drawnBytes_ < announced_))
        throw wrongSize(drawnBytes_ + (isMore ? 1 : 0));
    return count;
}

std::size_t FileStream::read(std::span<std::byte> into) {
    const std::size_t count = source_              ? drawHere(into)
                              : thread_.joinable() ? takeAhead(into)
                                                   : spool_.read(into);
    if (hash_)
        hash_->add(into.first(count));
    return count;
}

ByteSource FileStream::source() {
    const auto fill = [this](std::span<std::byte> into) { return read(into); };
    const auto lend = [this] {
        const ByteView bytes = lendAhead();
        taken_ += bytes.size();
        if (hash_)
            hash_->add(bytes);
        return bytes;
    };
    return {fill, thread_.joinable() ? ByteSource::Lend(lend) : ByteSource::Lend()};
}

} // namespace tessary
