#pragma once

#include "platform/usb/LinuxUSBTransferQueue.h"

namespace tessary {

/// Writes in flight on one pipe, from the transfers' own buffers.
class LinuxUSBWriteStream : public USBWriteStream {
public:
    /// Constructed as the queue is.
    template <typename... Arguments>
    explicit LinuxUSBWriteStream(Arguments&&... arguments)
        : queue_(std::forward<Arguments>(arguments)...) {}

    [[nodiscard]] std::span<std::byte> buffer() override {
        return queue_.buffer();
    }
    USBCode submit(std::size_t length) override {
        return queue_.submit(length);
    }
    USBCode next(std::size_t& transferred, USBTimeouts timeouts) override {
        const LinuxUSBTransferQueue::Done done = queue_.next(timeouts);
        transferred = done.transferred;
        return done.code;
    }
    [[nodiscard]] std::size_t inFlight() const override {
        return queue_.inFlight();
    }

private:
    LinuxUSBTransferQueue queue_;
};

} // namespace tessary
