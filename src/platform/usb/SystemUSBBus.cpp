#include "platform/usb/SystemUSBBus.h"

#include "base/values/FreeWith.h"
#include "platform/process/OpenFiles.h"
#include "platform/usb/LibusbHandle.h"
#include "platform/usb/LinuxUSBInterface.h"
#include "platform/usb/USBRegistry.h"
#include "platform/usb/UdevMonitor.h"

#include <QFile>

#include <thread>

namespace tessary {

using namespace std::chrono_literals;

namespace {

/// A device that was plugged in this moment is listed before the kernel has configured it, and has
/// no interfaces until then.
void awaitConfiguration(const QByteArray& sysPath) {
    for (int tries = 0; tries < 50; ++tries) {
        QFile file(QFile::decodeName(sysPath + "/bConfigurationValue"));
        if (!file.open(QIODevice::ReadOnly) || !file.readAll().trimmed().isEmpty())
            return;
        std::this_thread::sleep_for(10ms);
    }
}

/// A device behind usbfs. Any number of programs may have it open; only interfaces are exclusive.
class LinuxUSBDevice : public USBDevice {
public:
    explicit LinuxUSBDevice(USBRegistryEntry entry) : entry_(std::move(entry)) {}

    USBCode open() override {
        if (handle_)
            return usb::success;
        awaitConfiguration(entry_.sysPath);
        USBCode code = usb::success;
        auto handle = LibusbHandle::open(entry_.node, code);
        // The node's name may belong to the next device by now. Once it is open it is ours.
        if (!USBRegistry::isAttached(entry_))
            return usb::noDevice;
        handle_ = std::move(handle);
        return code;
    }
    std::vector<std::unique_ptr<USBInterface>>
    interfaces(std::optional<std::uint8_t> interfaceClass,
               std::optional<std::uint8_t> subclass) override {
        std::vector<std::unique_ptr<USBInterface>> found;
        libusb_config_descriptor* raw = nullptr;
        if (!handle_ ||
            libusb_get_active_config_descriptor(libusb_get_device(handle_->get()), &raw) != 0)
            return found;
        const std::unique_ptr<libusb_config_descriptor, FreeWith<libusb_free_config_descriptor>>
            config(raw);
        for (const libusb_interface& one : std::span(config->interface, config->bNumInterfaces)) {
            if (one.num_altsetting < 1)
                continue;
            const libusb_interface_descriptor& setting = one.altsetting[0];
            if (interfaceClass.value_or(setting.bInterfaceClass) == setting.bInterfaceClass &&
                subclass.value_or(setting.bInterfaceSubClass) == setting.bInterfaceSubClass)
                found.push_back(std::make_unique<LinuxUSBInterface>(*handle_, setting));
        }
        return found;
    }

private:
    const USBRegistryEntry entry_;
    std::unique_ptr<LibusbHandle> handle_;
};

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
