#include "phones/VirtualUsbInterface.h"

#include "phones/VirtualUsbReadStream.h"

namespace tessary {

namespace {

constexpr std::uint8_t pipeCount = 3;
constexpr std::uint16_t eventPacketSize = 28;

} // namespace

VirtualUsbInterface::VirtualUsbInterface(std::shared_ptr<VirtualUsbPort> port, std::uint8_t number)
    : port_(std::move(port)), number_(number) {}

VirtualUsbInterface::~VirtualUsbInterface() {
    close();
}

const VirtualUsbInterfaceDescription& VirtualUsbInterface::described() const {
    return port_->description().interfaces[number_];
}

std::uint8_t VirtualUsbInterface::interfaceClass() const {
    return described().interfaceClass;
}

std::uint8_t VirtualUsbInterface::interfaceSubclass() const {
    return described().interfaceSubclass;
}

UsbCode VirtualUsbInterface::open() {
    return openWith(port_->openFaults().get().interfaceOpen);
}

UsbCode VirtualUsbInterface::openSeize() {
    return openWith(port_->openFaults().get().interfaceSeize);
}

UsbCode VirtualUsbInterface::openWith(UsbCode fault) {
    if (open_)
        return usb::success;
    if (!port_->isPlugged())
        return usb::noDevice;
    const UsbCode code = fault != usb::success ? fault : port_->claim(number_);
    open_ = code == usb::success;
    return code;
}

void VirtualUsbInterface::close() {
    if (open_.exchange(false))
        port_->release(number_);
}

std::uint8_t VirtualUsbInterface::endpointCount() const {
    return described().hasPipes ? pipeCount : 0;
}

std::optional<UsbPipeProperties> VirtualUsbInterface::pipeProperties(std::uint8_t pipe) const {
    if (pipe == 0 || pipe > endpointCount())
        return std::nullopt;
    const VirtualUsbDescription& description = port_->description();
    UsbPipeProperties properties;
    properties.direction = pipe == VirtualUsbPort::outPipe ? UsbDirection::out : UsbDirection::in;
    properties.transferType =
        pipe == VirtualUsbPort::eventPipe ? UsbTransferType::interrupt : UsbTransferType::bulk;
    if (!description.reportsNoPacketSize)
        properties.maxPacketSize =
            pipe == VirtualUsbPort::eventPipe ? eventPacketSize : description.maxPacketSize;
    return properties;
}

VirtualUsbPipe* VirtualUsbInterface::pipeFor(std::uint8_t pipe, UsbDirection direction) const {
    const auto properties = pipeProperties(pipe);
    return properties && properties->direction == direction ? port_->pipe(pipe) : nullptr;
}

UsbCode VirtualUsbInterface::readPipeTO(std::uint8_t pipe, std::span<std::byte> buffer,
                                        std::size_t& transferred, UsbTimeouts timeouts) {
    transferred = 0;
    if (!open_)
        return usb::notOpen;
    VirtualUsbPipe* const source = pipeFor(pipe, UsbDirection::in);
    if (!source || buffer.empty())
        return usb::badArgument;
    return source->hostRead(buffer, transferred, timeouts);
}

UsbCode VirtualUsbInterface::writePipeTO(std::uint8_t pipe, std::span<const std::byte> data,
                                         std::size_t& transferred, UsbTimeouts timeouts) {
    transferred = 0;
    if (!open_)
        return usb::notOpen;
    // The pipes close one after the other: a call that begins after the first has is too late.
    if (!port_->isPlugged())
        return usb::noDevice;
    VirtualUsbPipe* const target = pipeFor(pipe, UsbDirection::out);
    return target ? target->hostWrite(data, transferred, timeouts) : usb::badArgument;
}

UsbCode VirtualUsbInterface::clearPipeStallBothEnds(std::uint8_t pipe) {
    if (!open_)
        return usb::notOpen;
    return pipe > 0 && pipe <= endpointCount() ? port_->clearStall(pipe) : usb::badArgument;
}

std::unique_ptr<UsbReadStream>
VirtualUsbInterface::readStream(std::uint8_t pipe, std::size_t requestSize, std::size_t depth) {
    VirtualUsbPipe* const source = pipeFor(pipe, UsbDirection::in);
    if (!open_ || !source)
        return nullptr;
    return std::make_unique<VirtualUsbReadStream>(port_, *source, requestSize, depth);
}

UsbCode VirtualUsbInterface::controlRequest(const UsbControlRequest& request,
                                            std::span<std::byte> data, std::size_t& transferred,
                                            std::chrono::milliseconds) {
    transferred = 0;
    return open_ ? port_->control(request, data, transferred) : usb::notOpen;
}

} // namespace tessary
