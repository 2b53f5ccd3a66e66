#include "platform/usb/LinuxUSBDevice.h"

#include "base/values/FreeWith.h"
#include "platform/usb/LibusbHandle.h"
#include "platform/usb/LinuxUSBInterface.h"

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

} // namespace

LinuxUSBDevice::LinuxUSBDevice(USBRegistryEntry entry) : entry_(std::move(entry)) {}

LinuxUSBDevice::~LinuxUSBDevice() = default;

USBCode LinuxUSBDevice::open() {
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
LinuxUSBDevice::interfaces(std::optional<std::uint8_t> interfaceClass,
                           std::optional<std::uint8_t> subclass) {
    std::vector<std::unique_ptr<USBInterface>> found;
    libusb_config_descriptor* raw = nullptr;
    if (!handle_ ||
        libusb_get_active_config_descriptor(libusb_get_device(handle_->get()), &raw) != 0)
        return found;
    const std::unique_ptr<libusb_config_descriptor, FreeWith<libusb_free_config_descriptor>> config(
        raw);
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

} // namespace tessary
