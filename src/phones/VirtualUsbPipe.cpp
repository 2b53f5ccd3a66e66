#include "phones/VirtualUsbPipe.h"

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

VirtualUsbPipe::VirtualUsbPipe(std::size_t packetSize, std::size_t capacity)
    : packetSize_(std::max<std::size_t>(packetSize, 1)), capacity_(capacity) {}

template <typename Step>
UsbCode VirtualUsbPipe::hostWait(std::unique_lock<std::mutex>& lock, UsbTimeouts timeouts,
                                 Step step) {
    const auto deadline = Clock::now() + timeouts.completion;
    auto quietDeadline = Clock::now() + timeouts.noData;
    for (bool late = false;;) {
        if (closed_)
            return usb::noDevice;
        bool progressed = false;
        const std::optional<UsbCode> code = step(progressed);
        if (progressed)
            changed_.notify_all();
        if (code)
            return *code;
        if (late)
            return usb::timeout;
        if (progressed)
            quietDeadline = Clock::now() + timeouts.noData;
        const auto until = std::min(deadline, quietDeadline);
        changed_.wait_until(lock, until);
        late = Clock::now() >= until;
    }
}

template <typename Ready>
UsbCode VirtualUsbPipe::deviceWait(std::unique_lock<std::mutex>& lock, Ready ready) {
    changed_.wait(lock, [&] { return closed_ || interrupted_ || ready(); });
    if (closed_)
        return usb::noDevice;
    return interrupted_ ? usb::aborted : usb::success;
}

/// Moves queued bytes into the buffer; a code when the read is over.
std::optional<UsbCode> VirtualUsbPipe::consume(Reading& reading) {
    // A read starts on a packet boundary, so that `filled` tells where in a packet it stands.
    while (!queue_.empty()) {
        VirtualUsbChunk& front = queue_.front();
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

UsbCode VirtualUsbPipe::hostRead(std::span<std::byte> buffer, std::size_t& transferred,
                                 UsbTimeouts timeouts) {
    Reading reading{buffer};
    std::unique_lock lock(mutex_);
    const UsbCode code = hostWait(lock, timeouts, [&](bool& progressed) {
        const std::size_t before = reading.filled;
        const auto outcome = consume(reading);
        progressed = outcome || reading.filled != before;
        return outcome;
    });
    transferred = reading.filled;
    return code;
}

bool VirtualUsbPipe::takeWhole(VirtualUsbChunk& chunk, std::size_t length) {
    if (queue_.empty() || queue_.front().stall)
        return false;
    VirtualUsbChunk& front = queue_.front();
    const bool fits = front.size() == length || (front.size() < length && front.endsTransfer);
    if (!fits)
        return false;
    const bool zeroPacketLeft = front.size() == length && front.endsTransfer;
    queued_ -= front.size();
    chunk = std::move(front);
    front = VirtualUsbChunk{};
    front.endsTransfer = true;
    if (!zeroPacketLeft)
        queue_.pop_front();
    return true;
}

UsbCode VirtualUsbPipe::hostTake(VirtualUsbChunk& chunk, std::size_t length, UsbTimeouts timeouts) {
    std::unique_lock lock(mutex_);
    recycleLocked(std::move(chunk));
    chunk = VirtualUsbChunk{};
    if (!expected_.empty())
        expected_.pop_front();
    Reading reading;
    bool collecting = false;
    const UsbCode code = hostWait(lock, timeouts, [&](bool& progressed) -> std::optional<UsbCode> {
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
    if (collecting)
        chunk.end = reading.filled;
    return code;
}

UsbCode VirtualUsbPipe::hostWrite(ByteView data, std::size_t& transferred, UsbTimeouts timeouts) {
    transferred = 0;
    const std::size_t piece = std::max(usualChunk / packetSize_, std::size_t{1}) * packetSize_;
    do {
        const std::size_t size = std::min(piece, data.size() - transferred);
        std::unique_lock lock(mutex_);
        VirtualUsbChunk chunk = newChunk(size);
        lock.unlock();
        // Copied outside the lock, so that the device goes on meanwhile.
        if (size > 0)
            std::memcpy(chunk.storage.get(), data.data() + transferred, size);
        chunk.end = size;
        chunk.endsTransfer = size % packetSize_ != 0 || size == 0;
        lock.lock();
        const UsbCode code =
            hostWait(lock, timeouts, [&](bool& progressed) -> std::optional<UsbCode> {
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

bool VirtualUsbPipe::hostClearStall() {
    const std::lock_guard lock(mutex_);
    const bool atStall = !queue_.empty() && queue_.front().stall;
    if (atStall)
        queue_.pop_front();
    const bool needed = atStall || stalled_;
    stalled_ = false;
    changed_.notify_all();
    return needed;
}

void VirtualUsbPipe::expectRead(std::size_t length) {
    const std::lock_guard lock(mutex_);
    expected_.push_back(length);
    lastExpected_ = length;
}

void VirtualUsbPipe::forgetReads() {
    const std::lock_guard lock(mutex_);
    expected_.clear();
}

/// Bytes from the end of what is queued to where one of the host's reads ends.
std::size_t VirtualUsbPipe::suggestedChunk() const {
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

VirtualUsbChunk VirtualUsbPipe::deviceChunk(std::size_t limit) {
    const std::lock_guard lock(mutex_);
    const std::size_t size = std::min({suggestedChunk(), limit, largestChunk});
    return newChunk(std::max(size / packetSize_, std::size_t{1}) * packetSize_);
}

bool VirtualUsbPipe::hasRoom(std::size_t size) const {
    return queue_.empty() || (queued_ + size <= capacity_ && queue_.size() < mostQueued);
}

void VirtualUsbPipe::push(VirtualUsbChunk chunk) {
    queued_ += chunk.size();
    queue_.push_back(std::move(chunk));
}

void VirtualUsbPipe::popFront() {
    recycleLocked(std::move(queue_.front()));
    queue_.pop_front();
}

UsbCode VirtualUsbPipe::devicePut(VirtualUsbChunk chunk) {
    std::unique_lock lock(mutex_);
    const UsbCode code = deviceWait(lock, [&] { return hasRoom(chunk.size()); });
    if (code != usb::success)
        return code;
    push(std::move(chunk));
    changed_.notify_all();
    return usb::success;
}

UsbCode VirtualUsbPipe::deviceTake(VirtualUsbChunk& chunk) {
    std::unique_lock lock(mutex_);
    recycleLocked(std::move(chunk));
    chunk = VirtualUsbChunk{};
    const UsbCode code = deviceWait(lock, [&] { return !queue_.empty(); });
    if (code != usb::success)
        return code;
    chunk = std::move(queue_.front());
    queue_.pop_front();
    queued_ -= chunk.size();
    changed_.notify_all();
    return usb::success;
}

UsbCode VirtualUsbPipe::deviceWaitEmpty(std::chrono::milliseconds timeout) {
    std::unique_lock lock(mutex_);
    const bool ready =
        changed_.wait_for(lock, timeout, [&] { return closed_ || interrupted_ || queued_ == 0; });
    if (closed_)
        return usb::noDevice;
    if (interrupted_)
        return usb::aborted;
    return ready ? usb::success : usb::timeout;
}

void VirtualUsbPipe::stallBehindData() {
    const std::lock_guard lock(mutex_);
    VirtualUsbChunk marker;
    marker.stall = true;
    push(std::move(marker));
    changed_.notify_all();
}

void VirtualUsbPipe::stallNow() {
    const std::lock_guard lock(mutex_);
    queue_.clear();
    queued_ = 0;
    stalled_ = true;
    changed_.notify_all();
}

void VirtualUsbPipe::interrupt(bool discard) {
    const std::lock_guard lock(mutex_);
    interrupted_ = true;
    if (discard) {
        queue_.clear();
        queued_ = 0;
    }
    changed_.notify_all();
}

void VirtualUsbPipe::resume() {
    const std::lock_guard lock(mutex_);
    interrupted_ = false;
}

void VirtualUsbPipe::close() {
    const std::lock_guard lock(mutex_);
    closed_ = true;
    queue_.clear();
    queued_ = 0;
    changed_.notify_all();
}

VirtualUsbChunk VirtualUsbPipe::newChunk(std::size_t capacity) {
    VirtualUsbChunk chunk;
    if (capacity >= smallestPooled) {
        const auto found = std::ranges::find_if(
            pool_, [&](const VirtualUsbChunk& pooled) { return pooled.allocated >= capacity; });
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

void VirtualUsbPipe::recycle(VirtualUsbChunk chunk) {
    const std::lock_guard lock(mutex_);
    recycleLocked(std::move(chunk));
}

void VirtualUsbPipe::recycleLocked(VirtualUsbChunk chunk) {
    if (!chunk.storage || chunk.allocated < smallestPooled)
        return;
    if (pool_.size() == mostPooled)
        pool_.erase(pool_.begin());
    pool_.push_back(std::move(chunk));
}

} // namespace tessary
