#pragma once

#include "platform/usb/USBBus.h"
#include "platform/usb/USBRegistry.h"

namespace tessary {

class LibusbHandle;

/// A device behind usbfs. Any number of programs may have it open; only interfaces are exclusive.
class LinuxUSBDevice : public USBDevice {
public:
    explicit LinuxUSBDevice(USBRegistryEntry entry);
    ~LinuxUSBDevice() override;

    USBCode open() override;

    [[nodiscard]] std::vector<std::unique_ptr<USBInterface>>
    interfaces(std::optional<std::uint8_t> interfaceClass,
               std::optional<std::uint8_t> subclass) override;

private:
    USBRegistryEntry entry_;
    std::unique_ptr<LibusbHandle> handle_;
};

} // namespace tessary
