#include "simulator/usb/VirtualUSBPipe.h"

#include <algorithm>
#include <cstring>

namespace tessary {

namespace {

constexpr std::size_t usualChunk = std::size_t{256} << 10;
constexpr std::size_t smallestPooled = std::size_t{16} << 10;
constexpr std::size_t mostPooled = 8;
/// Zero-length packets take no room in bytes, so that the entries are bounded as well.
constexpr std::size_t mostQueued = 4096;

} // namespace

VirtualUSBPipe::VirtualUSBPipe(std::size_t packetSize, std::size_t capacity)
    : packetSize_(std::max<std::size_t>(packetSize, 1)), capacity_(capacity) {}

template <typename Step>
USBCode VirtualUSBPipe::hostWait(std::unique_lock<std::mutex>& lock, USBTimeouts timeouts,
                                 Step step) {
    const auto until = Clock::now() + timeouts.limit;
    for (bool late = false;;) {
        if (closed_)
            return usb::noDevice;
        bool progressed = false;
        const std::optional<USBCode> code = step(progressed);
        if (progressed)
            changed_.notify_all();
        if (code)
            return *code;
        if (timeouts.isStopped())
            return usb::aborted;
        if (late)
            return usb::timeout;
        // How long a stop may go unheard.
        constexpr std::chrono::milliseconds slice{10};
        changed_.wait_until(lock, timeouts.stop ? std::min(until, Clock::now() + slice) : until);
        late = Clock::now() >= until;
    }
}

template <typename Ready>
USBCode VirtualUSBPipe::deviceWait(std::unique_lock<std::mutex>& lock, Ready ready) {
    changed_.wait(lock, [&] { return closed_ || interrupted_ || ready(); });
    if (closed_)
        return usb::noDevice;
    return interrupted_ ? usb::aborted : usb::success;
}

/// Moves queued bytes into the buffer; a code when the read is over.
std::optional<USBCode> VirtualUSBPipe::consume(Reading& reading) {
    // A read starts on a packet boundary, so that `filled` tells where in a packet it stands.
    while (!queue_.empty()) {
        VirtualUSBChunk& front = queue_.front();
        if (reading.filled == reading.buffer.size())
            return usb::success;
        if (front.stall)
            return usb::pipeStalled;
        const std::size_t taken = std::min(front.size(), reading.buffer.size() - reading.filled);
        if (taken > 0)
            std::memcpy(reading.buffer.data() + reading.filled, front.bytes().data(), taken);
        front.begin += taken;
        queued_ -= taken;
        reading.filled += taken;
        const std::size_t inPacket = reading.filled % packetSize_;
        if (front.size() > 0) {
            if (inPacket == 0)
                return usb::success;
            const std::size_t lost = std::min(front.size(), packetSize_ - inPacket);
            front.begin += lost;
            queued_ -= lost;
            const bool wasShort = inPacket + lost < packetSize_;
            if (front.size() == 0 && (wasShort || !front.endsTransfer))
                popFront();
            return usb::overrun;
        }
        if (front.endsTransfer) {
            // A full buffer leaves the zero-length packet to the next read.
            const bool zeroPacketLeft = inPacket == 0 && reading.filled == reading.buffer.size();
            if (!zeroPacketLeft)
                popFront();
            return usb::success;
        }
        popFront();
    }
    if (reading.filled == reading.buffer.size())
        return usb::success;
    return std::nullopt;
}

USBCode VirtualUSBPipe::hostRead(std::span<std::byte> buffer, std::size_t& transferred,
                                 USBTimeouts timeouts) {
    Reading reading{buffer};
    std::unique_lock lock(mutex_);
    const USBCode code = hostWait(lock, timeouts, [&](bool& progressed) {
        const std::size_t before = reading.filled;
        const auto outcome = consume(reading);
        progressed = outcome || reading.filled != before;
        return outcome;
    });
    transferred = reading.filled;
    return code;
}

bool VirtualUSBPipe::takeWhole(VirtualUSBChunk& chunk, std::size_t length) {
    if (queue_.empty() || queue_.front().stall)
        return false;
    VirtualUSBChunk& front = queue_.front();
    const bool fits = front.size() == length || (front.size() < length && front.endsTransfer);
    if (!fits)
        return false;
    const bool zeroPacketLeft = front.size() == length && front.endsTransfer;
    queued_ -= front.size();
    chunk = std::move(front);
    front = VirtualUSBChunk{};
    front.endsTransfer = true;
    if (!zeroPacketLeft)
        queue_.pop_front();
    return true;
}

USBCode VirtualUSBPipe::hostTake(VirtualUSBChunk& chunk, std::size_t length, USBTimeouts timeouts) {
    std::unique_lock lock(mutex_);
    recycleLocked(std::move(chunk));
    chunk = VirtualUSBChunk{};
    if (!expected_.empty())
        expected_.pop_front();
    isTaking_ = true;
    Reading reading;
    bool collecting = false;
    const USBCode code = hostWait(lock, timeouts, [&](bool& progressed) -> std::optional<USBCode> {
        if (!collecting) {
            if (queue_.empty())
                return std::nullopt;
            if (takeWhole(chunk, length)) {
                progressed = true;
                return usb::success;
            }
            chunk = newChunk(length);
            reading.buffer = {chunk.storage.get(), length};
            collecting = true;
        }
        const std::size_t before = reading.filled;
        const auto outcome = consume(reading);
        progressed = outcome || reading.filled != before;
        return outcome;
    });
    isTaking_ = false;
    if (collecting)
        chunk.end = reading.filled;
    return code;
}

USBCode VirtualUSBPipe::hostWrite(ByteView data, std::size_t& transferred, USBTimeouts timeouts) {
    transferred = 0;
    const std::size_t piece = std::max(usualChunk / packetSize_, std::size_t{1}) * packetSize_;
    do {
        const std::size_t size = std::min(piece, data.size() - transferred);
        std::unique_lock lock(mutex_);
        VirtualUSBChunk chunk = newChunk(size);
        lock.unlock();
        // Copied outside the lock, so that the device goes on meanwhile.
        if (size > 0)
            std::memcpy(chunk.storage.get(), data.data() + transferred, size);
        chunk.end = size;
        chunk.endsTransfer = size % packetSize_ != 0 || size == 0;
        lock.lock();
        const USBCode code =
            hostWait(lock, timeouts, [&](bool& progressed) -> std::optional<USBCode> {
                stalled_ = stalled_ || (refusesEmpty_ && data.empty());
                if (stalled_)
                    return usb::pipeStalled;
                if (!hasRoom(size))
                    return std::nullopt;
                push(std::move(chunk));
                progressed = true;
                return usb::success;
            });
        if (code != usb::success)
            return code;
        transferred += size;
    } while (transferred < data.size());
    return usb::success;
}

void VirtualUSBPipe::refuseEmptyWrites(bool refuses) {
    const std::lock_guard lock(mutex_);
    refusesEmpty_ = refuses;
}

bool VirtualUSBPipe::hostClearStall() {
    const std::lock_guard lock(mutex_);
    const bool atStall = !queue_.empty() && queue_.front().stall;
    if (atStall)
        queue_.pop_front();
    const bool needed = atStall || stalled_;
    stalled_ = false;
    changed_.notify_all();
    return needed;
}

void VirtualUSBPipe::expectRead(std::size_t length) {
    const std::lock_guard lock(mutex_);
    expected_.push_back(length);
    lastExpected_ = length;
}

void VirtualUSBPipe::forgetReads() {
    const std::lock_guard lock(mutex_);
    expected_.clear();
}

std::size_t VirtualUSBPipe::waitingReads() const {
    const std::lock_guard lock(mutex_);
    return queue_.empty() ? expected_.size() + (isTaking_ ? 1 : 0) : 0;
}

/// Bytes from the end of what is queued to where one of the host's reads ends.
std::size_t VirtualUSBPipe::suggestedChunk() const {
    if (lastExpected_ == 0)
        return usualChunk;
    std::size_t boundary = 0;
    for (const std::size_t length : expected_) {
        boundary += length;
        if (boundary > queued_)
            return boundary - queued_;
    }
    return lastExpected_ - (queued_ - boundary) % lastExpected_;
}

VirtualUSBChunk VirtualUSBPipe::deviceChunk(std::size_t limit) {
    const std::lock_guard lock(mutex_);
    const std::size_t size = std::min({suggestedChunk(), limit, largestChunk});
    return newChunk(std::max(size / packetSize_, std::size_t{1}) * packetSize_);
}

bool VirtualUSBPipe::hasRoom(std::size_t size) const {
    return queue_.empty() || (queued_ + size <= capacity_ && queue_.size() < mostQueued);
}

void VirtualUSBPipe::push(VirtualUSBChunk chunk) {
    queued_ += chunk.size();
    queue_.push_back(std::move(chunk));
}

void VirtualUSBPipe::popFront() {
    recycleLocked(std::move(queue_.front()));
    queue_.pop_front();
}

USBCode VirtualUSBPipe::devicePut(VirtualUSBChunk chunk) {
    std::unique_lock lock(mutex_);
    const USBCode code = deviceWait(lock, [&] { return hasRoom(chunk.size()); });
    if (code != usb::success)
        return code;
    push(std::move(chunk));
    changed_.notify_all();
    return usb::success;
}

USBCode VirtualUSBPipe::deviceTake(VirtualUSBChunk& chunk) {
    std::unique_lock lock(mutex_);
    recycleLocked(std::move(chunk));
    chunk = VirtualUSBChunk{};
    const USBCode code = deviceWait(lock, [&] { return !queue_.empty(); });
    if (code != usb::success)
        return code;
    chunk = std::move(queue_.front());
    queue_.pop_front();
    queued_ -= chunk.size();
    changed_.notify_all();
    return usb::success;
}

std::size_t VirtualUSBPipe::unread() const {
    const std::lock_guard lock(mutex_);
    return queue_.size();
}

USBCode VirtualUSBPipe::deviceWaitEmpty(std::chrono::milliseconds timeout) {
    std::unique_lock lock(mutex_);
    const bool ready =
        changed_.wait_for(lock, timeout, [&] { return closed_ || interrupted_ || queued_ == 0; });
    if (closed_)
        return usb::noDevice;
    if (interrupted_)
        return usb::aborted;
    return ready ? usb::success : usb::timeout;
}

void VirtualUSBPipe::stallBehindData() {
    const std::lock_guard lock(mutex_);
    VirtualUSBChunk marker;
    marker.stall = true;
    push(std::move(marker));
    changed_.notify_all();
}

void VirtualUSBPipe::stallNow() {
    const std::lock_guard lock(mutex_);
    queue_.clear();
    queued_ = 0;
    stalled_ = true;
    changed_.notify_all();
}

void VirtualUSBPipe::interrupt(bool discard) {
    const std::lock_guard lock(mutex_);
    interrupted_ = true;
    if (discard) {
        queue_.clear();
        queued_ = 0;
    }
    changed_.notify_all();
}

void VirtualUSBPipe::resume() {
    const std::lock_guard lock(mutex_);
    interrupted_ = false;
}

void VirtualUSBPipe::close() {
    const std::lock_guard lock(mutex_);
    closed_ = true;
    queue_.clear();
    queued_ = 0;
    changed_.notify_all();
}

VirtualUSBChunk VirtualUSBPipe::newChunk(std::size_t capacity) {
    VirtualUSBChunk chunk;
    if (capacity >= smallestPooled) {
        const auto found = std::ranges::find_if(
            pool_, [&](const VirtualUSBChunk& pooled) { return pooled.allocated >= capacity; });
        if (found != pool_.end()) {
            chunk.storage = std::move(found->storage);
            chunk.allocated = found->allocated;
            chunk.capacity = capacity;
            pool_.erase(found);
            return chunk;
        }
    }
    chunk.storage = std::make_unique_for_overwrite<std::byte[]>(capacity);
    chunk.allocated = capacity;
    chunk.capacity = capacity;
    return chunk;
}

void VirtualUSBPipe::recycle(VirtualUSBChunk chunk) {
    const std::lock_guard lock(mutex_);
    recycleLocked(std::move(chunk));
}

void VirtualUSBPipe::recycleLocked(VirtualUSBChunk chunk) {
    if (!chunk.storage || chunk.allocated < smallestPooled)
        return;
    if (pool_.size() == mostPooled)
        pool_.erase(pool_.begin());
    pool_.push_back(std::move(chunk));
}

} // namespace tessary
