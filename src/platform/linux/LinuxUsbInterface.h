#pragma once

#include "platform/UsbBus.h"

#include <libusb-1.0/libusb.h>

#include <atomic>

namespace tessary {

class LibusbHandle;

/// An interface behind usbfs, in its first alternate setting.
class LinuxUsbInterface : public UsbInterface {
public:
    /// The handle must outlive the interface.
    LinuxUsbInterface(const LibusbHandle& handle, const libusb_interface_descriptor& setting);
    ~LinuxUsbInterface() override;

    [[nodiscard]] std::uint8_t number() const override;
    [[nodiscard]] std::uint8_t interfaceClass() const override;
    [[nodiscard]] std::uint8_t interfaceSubclass() const override;

    UsbCode open() override;
    UsbCode openSeize() override;
    void close() override;

    [[nodiscard]] std::uint8_t endpointCount() const override;
    [[nodiscard]] std::optional<UsbPipeProperties> pipeProperties(std::uint8_t pipe) const override;

    /// Data that does not fit into `buffer` is usb::overrun, and lost beyond it.
    UsbCode readPipeTO(std::uint8_t pipe, std::span<std::byte> buffer, std::size_t& transferred,
                       UsbTimeouts timeouts) override;
    UsbCode writePipeTO(std::uint8_t pipe, std::span<const std::byte> data,
                        std::size_t& transferred, UsbTimeouts timeouts) override;
    UsbCode clearPipeStallBothEnds(std::uint8_t pipe) override;
    [[nodiscard]] std::unique_ptr<UsbReadStream>
    readStream(std::uint8_t pipe, std::size_t requestSize, std::size_t depth) override;
    UsbCode controlRequest(const UsbControlRequest& request, std::span<std::byte> data,
                           std::size_t& transferred, std::chrono::milliseconds timeout) override;

    /// The largest read, write or stream request, in bytes. usb::badArgument beyond it.
    static constexpr std::size_t maxRequestSize = 4 * 1024 * 1024;

private:
    struct Pipe {
        std::uint8_t address = 0;
        UsbPipeProperties properties;
    };

    UsbCode claim(bool fromKernel);
    [[nodiscard]] const Pipe* dataPipe(std::uint8_t number, UsbDirection direction) const;

    const LibusbHandle& handle_;
    std::uint8_t number_;
    std::uint8_t class_;
    std::uint8_t subclass_;
    std::vector<Pipe> pipes_; ///< pipe 1 first
    std::atomic<bool> open_ = false;
    bool seized_ = false;
};

} // namespace tessary
