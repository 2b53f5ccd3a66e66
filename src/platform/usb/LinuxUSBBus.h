#pragma once

#include "platform/usb/USBBus.h"

namespace tessary {

/// The USB devices of a Linux machine: sysfs and udev for what is attached, usbfs (through libusb)
/// for the pipes. Stateless, thus thread-safe.
class LinuxUSBBus : public USBBus {
public:
    [[nodiscard]] std::vector<USBDeviceEntry> devices() override;
    [[nodiscard]] std::unique_ptr<USBDevice> device(std::uint64_t id) override;
    [[nodiscard]] std::unique_ptr<USBWatch>
    watch(std::function<void(const USBEvent&)> callback) override;
    [[nodiscard]] QStringList programsHolding(std::uint64_t id) override;
};

} // namespace tessary
