#include "transfer/mount/RangedFile.h"

#include "base/threads/CancellationError.h"
#include "base/threads/ThreadName.h"

#include <algorithm>
#include <cerrno>
#include <system_error>

namespace tessary {

namespace {

using namespace std::chrono_literals;

constexpr qint64 blockSize = 256 * 1024;
constexpr qint64 longestRun = 16;  // blocks
constexpr qint64 longestCopy = 48; // blocks, for who reads as fast as they come
constexpr qint64 mostAhead = 16;   // blocks before the one that is read, when the next run begins
constexpr auto glance = 100ms;     // a reader that was killed is let go this soon

[[noreturn]] void fail(int error) {
    throw std::system_error(error, std::generic_category());
}

} // namespace

RangedFile::RangedFile(std::shared_ptr<PhoneFileSystem> files, FileItem item, Failed failed)
    : files_(std::move(files)), item_(std::move(item)), failed_(std::move(failed)) {}

RangedFile::~RangedFile() {
    stop();
}

void RangedFile::stop() {
    const std::scoped_lock lock(mutex_);
    isStopped_ = true;
    thread_.request_stop();
    arrived_.notify_all();
}

bool RangedFile::isLost() const {
    const std::scoped_lock lock(mutex_);
    return isStopped_; // what has failed is asked for again by the next read
}

qint64 RangedFile::blockCount() const {
    return (std::max<qint64>(item_.size, 0) + blockSize - 1) / blockSize;
}

std::size_t RangedFile::read(qint64 offset, std::span<std::byte> into,
                             const std::function<bool()>& isGivenUp) {
    const qint64 end =
        std::min(offset + static_cast<qint64>(into.size()), std::max<qint64>(item_.size, 0));
    std::size_t done = 0;
    std::unique_lock lock(mutex_);
    if (!thread_.joinable() && !isStopped_)
        thread_ = std::jthread([this](const std::stop_token& stop) { work(stop); });
    const std::uint64_t failures = failures_;
    while (offset < end) {
        const qint64 number = offset / blockSize;
        const auto block = blocks_.find(number);
        if (block == blocks_.end()) {
            if (isStopped_ || failures_ != failures)
                fail(EIO);
            if (isGivenUp())
                fail(EINTR);
            isWaiting_ = true;
            const bool isComing = running_ && running_->has(number);
            if (!isComing && std::find(wanted_.begin(), wanted_.end(), number) == wanted_.end())
                wanted_.push_back(number);
            asked_.notify_one();
            arrived_.wait_for(lock, glance);
            continue;
        }
        block->second.lastUse = ++uses_;
        lastRead_ = number;
        const Bytes& bytes = block->second.bytes;
        const auto within = static_cast<std::size_t>(offset - number * blockSize);
        if (within >= bytes.size())
            fail(EIO); // the file has become shorter
        const std::size_t count =
            std::min(bytes.size() - within, static_cast<std::size_t>(end - offset));
        std::copy_n(bytes.begin() + static_cast<std::ptrdiff_t>(within), count,
                    into.begin() + static_cast<std::ptrdiff_t>(done));
        done += count;
        offset += static_cast<qint64>(count);
    }
    if (isDueAhead())
        asked_.notify_one();
    return done;
}

/// Whether to fetch what nobody has asked for: only behind who has read on already, and not far
/// ahead of him.
bool RangedFile::isDueAhead() const {
    const qint64 ahead = last_.first + last_.count - lastRead_;
    return last_.count >= 2 && ahead > 0 && ahead <= mostAhead;
}

/// What to fetch next: what somebody waits for, else what the one who reads on will want.
std::optional<RangedFile::Run> RangedFile::nextRun() {
    const qint64 end = last_.first + last_.count;
    // A request costs a phone more than its bytes, and others wait for their turn meanwhile: only
    // a copy is worth long ones. What is played is there before it is asked for.
    const qint64 longest = isWaiting_ && last_.count >= longestRun ? longestCopy : longestRun;
    const qint64 longer = std::min(last_.count * 2, longest);
    Run next;
    while (!wanted_.empty() && blocks_.contains(wanted_.front()))
        wanted_.pop_front();
    if (!wanted_.empty()) {
        const qint64 block = wanted_.front();
        wanted_.pop_front();
        const bool readsOn = last_.count > 0 && block >= end && block <= end + 1;
        next = readsOn ? Run{end, longer} : Run{block, 1};
    } else {
        if (!isDueAhead())
            return std::nullopt;
        next = {end, longer};
    }
    // What is there already is not fetched again.
    while (next.count > 0 && blocks_.contains(next.first)) {
        ++next.first;
        --next.count;
    }
    qint64 count = 0;
    while (count < std::min(next.count, blockCount() - next.first) &&
           !blocks_.contains(next.first + count))
        ++count;
    next.count = count;
    if (next.count <= 0)
        return std::nullopt;
    return next;
}

void RangedFile::work(const std::stop_token& stop) {
    nameCurrentThread("tessary-mounted");
    std::unique_lock lock(mutex_);
    while (!stop.stop_requested()) {
        std::optional<Run> next;
        if (!asked_.wait(lock, stop, [&] { return (next = nextRun()).has_value(); }))
            return;
        running_ = next;
        isWaiting_ = false;
        lock.unlock();
        std::optional<Error> failure;
        try {
            fetch(*next, stop);
        } catch (const CancellationError&) {
        } catch (const Error& error) {
            failure = error;
        }
        lock.lock();
        running_.reset();
        last_ = *next;
        if (failure) {
            last_ = {};
            ++failures_;
            wanted_.clear();
        }
        arrived_.notify_all();
        if (failure) {
            lock.unlock();
            failed_(item_, *failure);
            lock.lock();
        }
    }
}

/// Without the lock.
void RangedFile::fetch(const Run& run, const std::stop_token& stop) {
    const qint64 offset = run.first * blockSize;
    const qint64 length = std::min(run.count * blockSize, item_.size - offset);
    qint64 arrived = 0;
    Bytes block;
    const auto add = [&](ByteView bytes) {
        while (!bytes.empty()) {
            if (arrived >= length)
                throw Error(PhoneError::wrongSize, {item_.path, arrived + 1, length});
            const qint64 room =
                std::min(blockSize - static_cast<qint64>(block.size()), length - arrived);
            const std::size_t count = std::min(bytes.size(), static_cast<std::size_t>(room));
            block.insert(block.end(), bytes.begin(),
                         bytes.begin() + static_cast<std::ptrdiff_t>(count));
            bytes = bytes.subspan(count);
            arrived += static_cast<qint64>(count);
            if (static_cast<qint64>(block.size()) == blockSize || arrived == length) {
                keep(offset / blockSize + (arrived - 1) / blockSize, std::move(block));
                block = {};
            }
        }
    };
    files_->read(item_, {offset, length}, add,
                 {stop, run.count > longestRun ? Urgency::copy : Urgency::user});
    if (arrived < length)
        throw Error(PhoneError::wrongSize, {item_.path, arrived, length});
}

void RangedFile::keep(qint64 number, Bytes bytes) {
    const std::scoped_lock lock(mutex_);
    blocks_[number] = {std::move(bytes), ++uses_};
    while (static_cast<qint64>(blocks_.size()) * blockSize > mostKept)
        blocks_.erase(std::min_element(blocks_.begin(), blocks_.end(),
                                       [](const auto& one, const auto& other) {
                                           return one.second.lastUse < other.second.lastUse;
                                       }));
    arrived_.notify_all();
}

} // namespace tessary
