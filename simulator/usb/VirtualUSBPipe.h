#pragma once

#include "base/values/Bytes.h"
#include "platform/usb/USBBus.h"

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <vector>

namespace tessary {

/// A piece of a transfer on its way through a pipe. Its bytes are a whole number of packets unless
/// it ends the transfer.
struct VirtualUSBChunk {
    std::unique_ptr<std::byte[]> storage;
    std::size_t allocated = 0; ///< bytes of storage
    std::size_t capacity = 0;  ///< bytes of it to use
    std::size_t begin = 0;
    std::size_t end = 0;
    /// A short packet follows the last whole one here: the rest of the bytes, or a zero-length
    /// packet when they end on a packet boundary.
    bool endsTransfer = false;
    bool stall = false; ///< no data: the pipe is halted from here on

    [[nodiscard]] std::size_t size() const {
        return end - begin;
    }
    [[nodiscard]] ByteView bytes() const {
        return {storage.get() + begin, size()};
    }
    [[nodiscard]] std::span<std::byte> space() {
        return {storage.get() + end, capacity - end};
    }
};

/// One bulk pipe between a virtual device and its host: packets, transfers that a short or
/// zero-length packet ends, a bounded buffer in between, stalls and unplugging. What the host does
/// not read stays in the pipe. Thread-safe; one writer and one reader at a time.
class VirtualUSBPipe {
public:
    using Clock = std::chrono::steady_clock;

    static constexpr std::size_t defaultCapacity = std::size_t{1} << 20;
    static constexpr std::size_t largestChunk = std::size_t{1} << 20;

    explicit VirtualUSBPipe(std::size_t packetSize, std::size_t capacity = defaultCapacity);

    [[nodiscard]] std::size_t packetSize() const {
        return packetSize_;
    }

    // The host's side. Each call ends with usb::noDevice as soon as the device is unplugged.

    /// Reads until `buffer` is full or a short packet ends the transfer; usb::overrun when a packet
    /// does not fit the rest of the buffer (what does not fit is lost).
    USBCode hostRead(std::span<std::byte> buffer, std::size_t& transferred, USBTimeouts timeouts);
    /// Like hostRead() of `length` bytes, but without a copy where one chunk holds the whole
    /// answer. Otherwise the answer is collected in `chunk`, which is given enough memory.
    USBCode hostTake(VirtualUSBChunk& chunk, std::size_t length, USBTimeouts timeouts);
    /// One transfer, or the next part of one when `data` is a whole number of packets.
    USBCode hostWrite(ByteView data, std::size_t& transferred, USBTimeouts timeouts);
    /// From now on an empty transfer of the host halts the pipe instead of reaching the device.
    void refuseEmptyWrites(bool refuses);
    /// False when there was nothing to clear.
    bool hostClearStall();
    /// Announces a read, so that the device can cut its chunks to fit; forgotten when data for it
    /// is taken or with forgetReads().
    void expectRead(std::size_t length);
    void forgetReads();
    /// How many reads of a stream there is nothing for.
    [[nodiscard]] std::size_t waitingReads() const;

    // The device's side. These wait without a bound, but end with usb::noDevice when unplugged and
    // with usb::aborted from interrupt() until resume().

    /// An empty chunk whose size fits what the host is waiting for: at most `limit` bytes, a whole
    /// number of packets (at least one).
    [[nodiscard]] VirtualUSBChunk deviceChunk(std::size_t limit = largestChunk);
    /// Waits for room and queues the chunk.
    USBCode devicePut(VirtualUSBChunk chunk);
    /// Waits for the oldest chunk that the host wrote.
    USBCode deviceTake(VirtualUSBChunk& chunk);
    /// How many transfers, or parts of them, the host has not read.
    [[nodiscard]] std::size_t unread() const;
    /// Gives memory back for the next chunk.
    void recycle(VirtualUSBChunk chunk);
    /// Waits until the host has read everything; usb::timeout when it has not by then.
    USBCode deviceWaitEmpty(std::chrono::milliseconds timeout);
    /// Halts the pipe behind what is queued already (device to host).
    void stallBehindData();
    /// Halts the pipe at once and drops what is queued (host to device).
    void stallNow();

    // Either side.

    /// Wakes the device's call; with `discard`, what is queued is dropped as well.
    void interrupt(bool discard);
    void resume();
    /// Unplugged: every call, waiting or to come, ends with usb::noDevice.
    void close();

private:
    struct Reading {
        std::span<std::byte> buffer;
        std::size_t filled = 0;
    };

    [[nodiscard]] std::optional<USBCode> consume(Reading& reading);
    [[nodiscard]] bool takeWhole(VirtualUSBChunk& chunk, std::size_t length);
    [[nodiscard]] std::size_t suggestedChunk() const;
    [[nodiscard]] bool hasRoom(std::size_t size) const;
    void push(VirtualUSBChunk chunk);
    void popFront();
    [[nodiscard]] VirtualUSBChunk newChunk(std::size_t capacity);
    void recycleLocked(VirtualUSBChunk chunk);
    template <typename Step>
    USBCode hostWait(std::unique_lock<std::mutex>& lock, USBTimeouts timeouts, Step step);
    template <typename Ready>
    USBCode deviceWait(std::unique_lock<std::mutex>& lock, Ready ready);

    const std::size_t packetSize_;
    const std::size_t capacity_;

    mutable std::mutex mutex_; ///< guards all below
    std::condition_variable changed_;
    std::deque<VirtualUSBChunk> queue_;
    std::size_t queued_ = 0; ///< bytes in queue_
    std::deque<std::size_t> expected_;
    std::size_t lastExpected_ = 0;
    bool isTaking_ = false; ///< the oldest read, which expected_ holds no more
    std::vector<VirtualUSBChunk> pool_;
    bool stalled_ = false;
    bool refusesEmpty_ = false;
    bool interrupted_ = false;
    bool closed_ = false;
};

} // namespace tessary
