#pragma once

#include "phones/VirtualUsbPort.h"

#include <atomic>

namespace tessary {

/// The host's handle of one interface of a virtual device.
class VirtualUsbInterface : public UsbInterface {
public:
    VirtualUsbInterface(std::shared_ptr<VirtualUsbPort> port, std::uint8_t number);
    ~VirtualUsbInterface() override;
    VirtualUsbInterface(const VirtualUsbInterface&) = delete;
    VirtualUsbInterface& operator=(const VirtualUsbInterface&) = delete;

    [[nodiscard]] std::uint8_t number() const override {
        return number_;
    }
    [[nodiscard]] std::uint8_t interfaceClass() const override;
    [[nodiscard]] std::uint8_t interfaceSubclass() const override;

    UsbCode open() override;
    UsbCode openSeize() override;
    void close() override;

    [[nodiscard]] std::uint8_t endpointCount() const override;
    [[nodiscard]] std::optional<UsbPipeProperties> pipeProperties(std::uint8_t pipe) const override;

    UsbCode readPipeTO(std::uint8_t pipe, std::span<std::byte> buffer, std::size_t& transferred,
                       UsbTimeouts timeouts) override;
    UsbCode writePipeTO(std::uint8_t pipe, std::span<const std::byte> data,
                        std::size_t& transferred, UsbTimeouts timeouts) override;
    UsbCode clearPipeStallBothEnds(std::uint8_t pipe) override;
    [[nodiscard]] std::unique_ptr<UsbReadStream>
    readStream(std::uint8_t pipe, std::size_t requestSize, std::size_t depth) override;
    UsbCode controlRequest(const UsbControlRequest& request, std::span<std::byte> data,
                           std::size_t& transferred, std::chrono::milliseconds timeout) override;

private:
    UsbCode openWith(UsbCode fault);
    [[nodiscard]] const VirtualUsbInterfaceDescription& described() const;
    [[nodiscard]] VirtualUsbPipe* pipeFor(std::uint8_t pipe, UsbDirection direction) const;

    std::shared_ptr<VirtualUsbPort> port_;
    const std::uint8_t number_;
    std::atomic<bool> open_ = false;
};

} // namespace tessary
