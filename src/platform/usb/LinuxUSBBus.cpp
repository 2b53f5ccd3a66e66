#include "platform/usb/LinuxUSBBus.h"

#include "platform/process/OpenFiles.h"
#include "platform/usb/LinuxUSBDevice.h"
#include "platform/usb/SystemUSBBus.h"
#include "platform/usb/USBRegistry.h"
#include "platform/usb/UdevMonitor.h"

namespace tessary {

std::unique_ptr<USBBus> makeSystemUSBBus() {
    return std::make_unique<LinuxUSBBus>();
}

std::vector<USBDeviceEntry> LinuxUSBBus::devices() {
    std::vector<USBDeviceEntry> entries;
    for (USBRegistryEntry& one : USBRegistry::scan())
        entries.push_back(std::move(one.entry));
    return entries;
}

std::unique_ptr<USBDevice> LinuxUSBBus::device(std::uint64_t id) {
    if (auto found = USBRegistry::find(id))
        return std::make_unique<LinuxUSBDevice>(std::move(*found));
    return nullptr;
}

std::unique_ptr<USBWatch> LinuxUSBBus::watch(std::function<void(const USBEvent&)> callback) {
    return UdevMonitor::start(std::move(callback));
}

QStringList LinuxUSBBus::programsHolding(std::uint64_t id) {
    const auto found = USBRegistry::find(id);
    return found ? programsWithOpenFile(found->node) : QStringList();
}

} // namespace tessary
