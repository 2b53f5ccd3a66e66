#pragma once

#include "simulator/usb/VirtualUSBPort.h"

namespace tessary {

/// The host's handle of a virtual device.
class VirtualUSBDevice : public USBDevice {
public:
    explicit VirtualUSBDevice(std::shared_ptr<VirtualUSBPort> port);

    USBCode open() override;

    [[nodiscard]] std::vector<std::unique_ptr<USBInterface>>
    interfaces(std::optional<std::uint8_t> interfaceClass,
               std::optional<std::uint8_t> subclass) override;

private:
    std::shared_ptr<VirtualUSBPort> port_;
    bool open_ = false;
};

} // namespace tessary
