#pragma once

#include "simulator/usb/VirtualUSBPort.h"

namespace tessary {

/// Reads in flight on the IN pipe of a virtual device.
class VirtualUSBReadStream : public USBStream {
public:
    VirtualUSBReadStream(std::shared_ptr<VirtualUSBPort> port, VirtualUSBPipe& pipe,
                         std::size_t requestSize, std::size_t depth);
    ~VirtualUSBReadStream() override;
    VirtualUSBReadStream(const VirtualUSBReadStream&) = delete;
    VirtualUSBReadStream& operator=(const VirtualUSBReadStream&) = delete;

    [[nodiscard]] std::span<std::byte> buffer() override {
        return {};
    }
    USBCode submit(std::size_t length) override;
    USBCode next(USBTransferred& done, USBTimeouts timeouts) override;
    [[nodiscard]] std::size_t inFlight() const override {
        return lengths_.size();
    }

private:
    void cancel();

    std::shared_ptr<VirtualUSBPort> port_; ///< keeps pipe_ alive
    VirtualUSBPipe& pipe_;
    const std::size_t requestSize_;
    const std::size_t depth_;
    std::deque<std::size_t> lengths_;
    VirtualUSBChunk delivered_; ///< what the last next() points into
};

} // namespace tessary
