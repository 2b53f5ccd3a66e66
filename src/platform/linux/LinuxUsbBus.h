#pragma once

#include "platform/UsbBus.h"

namespace tessary {

/// The USB devices of a Linux machine: sysfs and udev for what is attached, usbfs (through libusb)
/// for the pipes. Stateless, thus thread-safe.
class LinuxUsbBus : public UsbBus {
public:
    [[nodiscard]] std::vector<UsbDeviceEntry> devices() override;
    [[nodiscard]] std::unique_ptr<UsbDevice> device(std::uint64_t id) override;
    [[nodiscard]] std::unique_ptr<UsbWatch>
    watch(std::function<void(const UsbEvent&)> callback) override;
    [[nodiscard]] QStringList programsHolding(std::uint64_t id) override;
};

} // namespace tessary
