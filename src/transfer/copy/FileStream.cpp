#include "transfer/copy/FileStream.h"

#include "base/text/ByteCount.h"
#include "base/threads/CancellationError.h"
#include "base/threads/CombinedStopToken.h"
#include "base/threads/ThreadName.h"

#include <algorithm>

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
    else
        thread_ = std::jthread([this](const std::stop_token& stop) { fetchAhead(stop); });
}

FileStream::~FileStream() {
    thread_.request_stop();
}

void FileStream::fetch(const std::function<void(ByteView)>& sink, const Call& call) {
    qint64 done = 0;
    const auto wrongSize = [&] {
        return Error(PhoneError::wrongSize, {file_.path, offset_ + done, offset_ + announced_});
    };
    from_.read(
        file_, {offset_, -1},
        [&](ByteView bytes) {
            done = addByteCounts(done, static_cast<qint64>(bytes.size()));
            if (done > most_)
                throw wrongSize();
            sink(bytes);
        },
        call);
    if (done < announced_)
        throw wrongSize();
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
    std::unique_lock lock(mutex_);
    changed_.wait(lock, stop, [this] { return waitingBytes_ < mostAhead; });
    throwIfStopped(stop);
    waiting_.emplace_back(bytes.begin(), bytes.end());
    waitingBytes_ += static_cast<qint64>(bytes.size());
    changed_.notify_all();
}

std::size_t FileStream::takeAhead(std::span<std::byte> into) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, call_.stop, [this] { return hasEnded_ || !waiting_.empty(); });
    throwIfStopped(call_.stop);
    if (failure_)
        std::rethrow_exception(failure_);
    std::size_t count = 0;
    while (count < into.size() && !waiting_.empty()) {
        const Bytes& first = waiting_.front();
        const std::size_t step = std::min(into.size() - count, first.size() - firstTaken_);
        std::copy_n(first.begin() + static_cast<std::ptrdiff_t>(firstTaken_), step,
                    into.begin() + static_cast<std::ptrdiff_t>(count));
        count += step;
        firstTaken_ += step;
        if (firstTaken_ == first.size()) {
            waiting_.pop_front();
            firstTaken_ = 0;
        }
    }
    waitingBytes_ -= static_cast<qint64>(count);
    changed_.notify_all();
    return count;
}

std::size_t FileStream::read(std::span<std::byte> into) {
    const std::size_t count = thread_.joinable() ? takeAhead(into) : spool_.read(into);
    if (hash_)
        hash_->add(into.first(count));
    return count;
}

} // namespace tessary
