#pragma once

#include "phones/VirtualUsbPort.h"

namespace tessary {

/// Reads in flight on the IN pipe of a virtual device.
class VirtualUsbReadStream : public UsbReadStream {
public:
    VirtualUsbReadStream(std::shared_ptr<VirtualUsbPort> port, VirtualUsbPipe& pipe,
                         std::size_t requestSize, std::size_t depth);
    ~VirtualUsbReadStream() override;
    VirtualUsbReadStream(const VirtualUsbReadStream&) = delete;
    VirtualUsbReadStream& operator=(const VirtualUsbReadStream&) = delete;

    UsbCode submit(std::size_t length) override;
    UsbCode next(std::span<const std::byte>& data, UsbTimeouts timeouts) override;
    [[nodiscard]] std::size_t inFlight() const override {
        return lengths_.size();
    }

private:
    void cancel();

    std::shared_ptr<VirtualUsbPort> port_; ///< keeps pipe_ alive
    VirtualUsbPipe& pipe_;
    const std::size_t requestSize_;
    const std::size_t depth_;
    std::deque<std::size_t> lengths_;
    VirtualUsbChunk delivered_; ///< what the last next() points into
};

} // namespace tessary
