#include "platform/linux/LinuxUsbBus.h"

#include "platform/SystemUsbBus.h"
#include "platform/linux/LinuxUsbDevice.h"
#include "platform/linux/OpenFiles.h"
#include "platform/linux/UdevMonitor.h"
#include "platform/linux/UsbRegistry.h"

namespace tessary {

std::unique_ptr<UsbBus> makeSystemUsbBus() {
    return std::make_unique<LinuxUsbBus>();
}

std::vector<UsbDeviceEntry> LinuxUsbBus::devices() {
    std::vector<UsbDeviceEntry> entries;
    for (UsbRegistryEntry& one : UsbRegistry::scan())
        entries.push_back(std::move(one.entry));
    return entries;
}

std::unique_ptr<UsbDevice> LinuxUsbBus::device(std::uint64_t id) {
    if (auto found = UsbRegistry::find(id))
        return std::make_unique<LinuxUsbDevice>(std::move(*found));
    return nullptr;
}

std::unique_ptr<UsbWatch> LinuxUsbBus::watch(std::function<void(const UsbEvent&)> callback) {
    return UdevMonitor::start(std::move(callback));
}

QStringList LinuxUsbBus::programsHolding(std::uint64_t id) {
    const auto found = UsbRegistry::find(id);
    return found ? programsWithOpenFile(found->node) : QStringList();
}

} // namespace tessary
