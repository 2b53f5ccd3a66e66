#pragma once

#include "platform/usb/LinuxUSBTransferQueue.h"

namespace tessary {

/// Reads in flight on one pipe. What next() hands out lies in the transfer's own buffer.
class LinuxUSBReadStream : public USBReadStream {
public:
    /// Constructed as the queue is.
    template <typename... Arguments>
    explicit LinuxUSBReadStream(Arguments&&... arguments)
        : queue_(std::forward<Arguments>(arguments)...) {}

    USBCode submit(std::size_t length) override;
    USBCode next(std::span<const std::byte>& data, USBTimeouts timeouts) override;
    [[nodiscard]] std::size_t inFlight() const override {
        return queue_.inFlight();
    }

private:
    LinuxUSBTransferQueue queue_;
};

} // namespace tessary
