#include "simulator/usb/VirtualUSBDevice.h"

#include "simulator/usb/VirtualUSBInterface.h"

namespace tessary {

VirtualUSBDevice::VirtualUSBDevice(std::shared_ptr<VirtualUSBPort> port) : port_(std::move(port)) {}

std::uint16_t VirtualUSBDevice::vendorID() const {
    return port_->entry().vendorID;
}

std::uint16_t VirtualUSBDevice::productID() const {
    return port_->entry().productID;
}

USBCode VirtualUSBDevice::open() {
    return openWith(port_->openFaults().get().deviceOpen);
}

USBCode VirtualUSBDevice::openSeize() {
    return openWith(port_->openFaults().get().deviceSeize);
}

USBCode VirtualUSBDevice::openWith(USBCode fault) {
    const USBCode code = port_->isPlugged() ? fault : usb::noDevice;
    open_ = open_ || code == usb::success;
    return code;
}

void VirtualUSBDevice::close() {
    open_ = false;
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
