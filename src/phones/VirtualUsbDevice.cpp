#include "phones/VirtualUsbDevice.h"

#include "phones/VirtualUsbInterface.h"

namespace tessary {

VirtualUsbDevice::VirtualUsbDevice(std::shared_ptr<VirtualUsbPort> port) : port_(std::move(port)) {}

std::uint16_t VirtualUsbDevice::vendorID() const {
    return port_->entry().vendorID;
}

std::uint16_t VirtualUsbDevice::productID() const {
    return port_->entry().productID;
}

UsbCode VirtualUsbDevice::open() {
    return openWith(port_->openFaults().get().deviceOpen);
}

UsbCode VirtualUsbDevice::openSeize() {
    return openWith(port_->openFaults().get().deviceSeize);
}

UsbCode VirtualUsbDevice::openWith(UsbCode fault) {
    const UsbCode code = port_->isPlugged() ? fault : usb::noDevice;
    open_ = open_ || code == usb::success;
    return code;
}

void VirtualUsbDevice::close() {
    open_ = false;
}

std::vector<std::unique_ptr<UsbInterface>>
VirtualUsbDevice::interfaces(std::optional<std::uint8_t> interfaceClass,
                             std::optional<std::uint8_t> subclass) {
    std::vector<std::unique_ptr<UsbInterface>> found;
    if (!open_)
        return found;
    const auto& described = port_->description().interfaces;
    for (std::size_t i = 0; i < described.size(); ++i) {
        const bool wanted =
            described[i].interfaceClass == interfaceClass.value_or(described[i].interfaceClass) &&
            described[i].interfaceSubclass == subclass.value_or(described[i].interfaceSubclass);
        if (wanted)
            found.push_back(
                std::make_unique<VirtualUsbInterface>(port_, static_cast<std::uint8_t>(i)));
    }
    return found;
}

} // namespace tessary
