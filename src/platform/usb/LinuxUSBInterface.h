#pragma once

#include "platform/usb/USBBus.h"

#include <libusb-1.0/libusb.h>

#include <atomic>

namespace tessary {

class LibusbHandle;
class LibusbTransfer;

/// An interface behind usbfs, in its first alternate setting.
class LinuxUSBInterface : public USBInterface {
public:
    /// The handle must outlive the interface.
    LinuxUSBInterface(const LibusbHandle& handle, const libusb_interface_descriptor& setting);
    ~LinuxUSBInterface() override;

    USBCode open() override {
        return claim(false);
    }
    USBCode openSeize() override {
        return claim(true);
    }
    void close() override;

    /// Data that does not fit into `buffer` is usb::overrun, and lost beyond it.
    USBCode readPipeTO(std::uint8_t pipe, std::span<std::byte> buffer, std::size_t& transferred,
                       USBTimeouts timeouts) override;
    USBCode writePipeTO(std::uint8_t pipe, std::span<const std::byte> data,
                        std::size_t& transferred, USBTimeouts timeouts) override;
    USBCode clearPipeStallBothEnds(std::uint8_t pipe) override;
    [[nodiscard]] std::unique_ptr<USBStream> stream(std::uint8_t pipe, std::size_t requestSize,
                                                    std::size_t depth) override;
    USBCode controlRequest(const USBControlRequest& request, std::span<std::byte> data,
                           std::size_t& transferred, std::chrono::milliseconds timeout) override;

    /// The largest read, write or stream request, in bytes. usb::badArgument beyond it.
    static constexpr std::size_t maxRequestSize = 4 * 1024 * 1024;

private:
    struct Pipe {
        std::uint8_t address = 0;
        USBPipeProperties properties;
    };

    USBCode claim(bool fromKernel);
    [[nodiscard]] static USBCode carryOut(LibusbTransfer& transfer, const Pipe& pipe,
                                          std::size_t length, USBTimeouts timeouts);
    [[nodiscard]] std::optional<Pipe> dataPipe(std::uint8_t number, USBDirection direction) const;

    const LibusbHandle& handle_;
    std::vector<std::uint8_t> addresses_; ///< of the pipes, pipe 1 first
    std::atomic<bool> open_ = false;
    bool seized_ = false;
};

} // namespace tessary
