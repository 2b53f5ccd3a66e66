#include "simulator/usb/VirtualUSBDevice.h"

#include "simulator/usb/VirtualUSBInterface.h"

namespace tessary {

VirtualUSBDevice::VirtualUSBDevice(std::shared_ptr<VirtualUSBPort> port) : port_(std::move(port)) {}

USBCode VirtualUSBDevice::open() {
    const USBCode code = port_->isPlugged() ? port_->openFaults().get().deviceOpen : usb::noDevice;
    open_ = open_ || code == usb::success;
    return code;
}

std::vector<std::unique_ptr<USBInterface>>
VirtualUSBDevice::interfaces(std::optional<std::uint8_t> interfaceClass,
                             std::optional<std::uint8_t> subclass) {
    std::vector<std::unique_ptr<USBInterface>> found;
    if (!open_)
        return found;
    const auto& described = port_->description().interfaces;
    for (std::size_t i = 0; i < described.size(); ++i) {
        const bool wanted =
            described[i].interfaceClass == interfaceClass.value_or(described[i].interfaceClass) &&
            described[i].interfaceSubclass == subclass.value_or(described[i].interfaceSubclass);
        if (wanted)
            found.push_back(
                std::make_unique<VirtualUSBInterface>(port_, static_cast<std::uint8_t>(i)));
    }
    return found;
}

} // namespace tessary
