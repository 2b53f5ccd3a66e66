#pragma once

#include "simulator/usb/VirtualUSBPort.h"

namespace tessary {

/// Writes in flight on the OUT pipe of a virtual device. Each goes into the pipe, which holds a few
/// itself, when it is waited for.
class VirtualUSBWriteStream : public USBStream {
public:
    VirtualUSBWriteStream(std::shared_ptr<VirtualUSBPort> port, VirtualUSBPipe& pipe,
                          std::size_t requestSize, std::size_t depth);

    [[nodiscard]] std::span<std::byte> buffer() override;
    USBCode submit(std::size_t length) override;
    USBCode next(USBTransferred& done, USBTimeouts timeouts) override;
    [[nodiscard]] std::size_t inFlight() const override {
        return lengths_.size();
    }

private:
    std::shared_ptr<VirtualUSBPort> port_; ///< keeps pipe_ alive
    VirtualUSBPipe& pipe_;
    std::vector<Bytes> buffers_;      ///< used in turn
    std::size_t first_ = 0;           ///< the oldest write's
    std::deque<std::size_t> lengths_; ///< oldest first
};

} // namespace tessary
