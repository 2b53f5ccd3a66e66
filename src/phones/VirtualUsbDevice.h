#pragma once

#include "phones/VirtualUsbPort.h"

namespace tessary {

/// The host's handle of a virtual device.
class VirtualUsbDevice : public UsbDevice {
public:
    explicit VirtualUsbDevice(std::shared_ptr<VirtualUsbPort> port);

    [[nodiscard]] std::uint16_t vendorID() const override;
    [[nodiscard]] std::uint16_t productID() const override;

    UsbCode open() override;
    UsbCode openSeize() override;
    void close() override;

    [[nodiscard]] std::vector<std::unique_ptr<UsbInterface>>
    interfaces(std::optional<std::uint8_t> interfaceClass,
               std::optional<std::uint8_t> subclass) override;

private:
    UsbCode openWith(UsbCode fault);

    std::shared_ptr<VirtualUsbPort> port_;
    bool open_ = false;
};

} // namespace tessary
