#pragma once

#include "platform/UsbBus.h"
#include "platform/linux/UsbRegistry.h"

namespace tessary {

class LibusbHandle;

/// A device behind usbfs. Any number of programs may have it open; only interfaces are exclusive,
/// so that openSeize() has nothing to seize.
class LinuxUsbDevice : public UsbDevice {
public:
    explicit LinuxUsbDevice(UsbRegistryEntry entry);
    ~LinuxUsbDevice() override;

    [[nodiscard]] std::uint16_t vendorID() const override;
    [[nodiscard]] std::uint16_t productID() const override;

    UsbCode open() override;
    UsbCode openSeize() override;
    void close() override;

    [[nodiscard]] std::vector<std::unique_ptr<UsbInterface>>
    interfaces(std::optional<std::uint8_t> interfaceClass,
               std::optional<std::uint8_t> subclass) override;

private:
    UsbRegistryEntry entry_;
    std::unique_ptr<LibusbHandle> handle_;
};

} // namespace tessary
