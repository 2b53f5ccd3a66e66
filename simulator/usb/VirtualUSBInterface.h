#pragma once

#include "simulator/usb/VirtualUSBPort.h"

#include <atomic>

namespace tessary {

/// The host's handle of one interface of a virtual device.
class VirtualUSBInterface : public USBInterface {
public:
    VirtualUSBInterface(std::shared_ptr<VirtualUSBPort> port, std::uint8_t number);
    ~VirtualUSBInterface() override;
    VirtualUSBInterface(const VirtualUSBInterface&) = delete;
    VirtualUSBInterface& operator=(const VirtualUSBInterface&) = delete;

    USBCode open() override;
    USBCode openSeize() override;
    void close() override;

    USBCode readPipeTO(std::uint8_t pipe, std::span<std::byte> buffer, std::size_t& transferred,
                       USBTimeouts timeouts) override;
    USBCode writePipeTO(std::uint8_t pipe, std::span<const std::byte> data,
                        std::size_t& transferred, USBTimeouts timeouts) override;
    USBCode clearPipeStallBothEnds(std::uint8_t pipe) override;
    [[nodiscard]] std::unique_ptr<USBStream> stream(std::uint8_t pipe, std::size_t requestSize,
                                                    std::size_t depth) override;
    USBCode controlRequest(const USBControlRequest& request, std::span<std::byte> data,
                           std::size_t& transferred, std::chrono::milliseconds timeout) override;

private:
    USBCode openWith(USBCode fault);
    [[nodiscard]] VirtualUSBPipe* pipeFor(std::uint8_t pipe, USBDirection direction) const;

    std::shared_ptr<VirtualUSBPort> port_;
    std::atomic<bool> open_ = false;
};

} // namespace tessary
