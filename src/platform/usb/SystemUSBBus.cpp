#include "platform/usb/SystemUSBBus.h"

#include "platform/process/OpenFiles.h"
#include "platform/usb/LinuxUSBDevice.h"
#include "platform/usb/USBRegistry.h"
#include "platform/usb/UdevMonitor.h"

namespace tessary {

namespace {

/// The USB devices of a Linux machine: sysfs and udev for what is attached, usbfs (through libusb)
/// for the pipes. Stateless, thus thread-safe.
class LinuxUSBBus : public USBBus {
public:
    std::vector<USBDeviceEntry> devices() override {
        std::vector<USBDeviceEntry> entries;
        for (USBRegistryEntry& one : USBRegistry::scan())
            entries.push_back(std::move(one.entry));
        return entries;
    }
    std::unique_ptr<USBDevice> device(std::uint64_t id) override {
        auto found = USBRegistry::find(id);
        return found ? std::make_unique<LinuxUSBDevice>(*std::move(found)) : nullptr;
    }
    std::unique_ptr<USBWatch> watch(std::function<void(const USBEvent&)> callback) override {
        return UdevMonitor::start(std::move(callback));
    }
    QStringList programsHolding(std::uint64_t id) override {
        const auto found = USBRegistry::find(id);
        return found ? programsWithOpenFile(found->node) : QStringList();
    }
};

} // namespace

std::unique_ptr<USBBus> makeSystemUSBBus() {
    return std::make_unique<LinuxUSBBus>();
}

} // namespace tessary
