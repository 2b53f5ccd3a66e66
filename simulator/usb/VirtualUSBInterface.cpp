#include "simulator/usb/VirtualUSBInterface.h"

#include "simulator/usb/VirtualUSBReadStream.h"
#include "simulator/usb/VirtualUSBWriteStream.h"

namespace tessary {

namespace {

constexpr std::uint16_t eventPacketSize = 28;

USBInterfaceDescription descriptionOf(const VirtualUSBDescription& device, std::uint8_t number) {
    const VirtualUSBInterfaceDescription& described = device.interfaces[number];
    USBInterfaceDescription description{
        number, described.interfaceClass, described.interfaceSubclass, {}};
    for (std::uint8_t pipe = 1; pipe <= described.pipes; ++pipe) {
        const bool isEvents = pipe == VirtualUSBPort::eventPipe;
        description.pipes.push_back(
            {pipe == VirtualUSBPort::outPipe ? USBDirection::out : USBDirection::in,
             isEvents ? USBTransferType::interrupt : USBTransferType::bulk,
             isEvents ? eventPacketSize : device.maxPacketSize});
    }
    return description;
}

} // namespace

VirtualUSBInterface::VirtualUSBInterface(std::shared_ptr<VirtualUSBPort> port, std::uint8_t number)
    : USBInterface(descriptionOf(port->description(), number)), port_(std::move(port)) {}

VirtualUSBInterface::~VirtualUSBInterface() {
    close();
}

USBCode VirtualUSBInterface::open() {
    return openWith(port_->openFaults().get().interfaceOpen);
}

USBCode VirtualUSBInterface::openSeize() {
    return openWith(port_->openFaults().get().interfaceSeize);
}

USBCode VirtualUSBInterface::openWith(USBCode fault) {
    if (open_)
        return usb::success;
    if (!port_->isPlugged())
        return usb::noDevice;
    const USBCode code = fault != usb::success ? fault : port_->claim(number());
    open_ = code == usb::success;
    return code;
}

void VirtualUSBInterface::close() {
    if (open_.exchange(false))
        port_->release(number());
}

VirtualUSBPipe* VirtualUSBInterface::pipeFor(std::uint8_t pipe, USBDirection direction) const {
    const auto properties = pipeProperties(pipe);
    return properties && properties->direction == direction ? port_->pipe(pipe) : nullptr;
}

USBCode VirtualUSBInterface::readPipeTO(std::uint8_t pipe, std::span<std::byte> buffer,
                                        std::size_t& transferred, USBTimeouts timeouts) {
    transferred = 0;
    if (!open_)
        return usb::notOpen;
    VirtualUSBPipe* const source = pipeFor(pipe, USBDirection::in);
    if (!source || buffer.empty())
        return usb::badArgument;
    return source->hostRead(buffer, transferred, timeouts);
}

USBCode VirtualUSBInterface::writePipeTO(std::uint8_t pipe, std::span<const std::byte> data,
                                         std::size_t& transferred, USBTimeouts timeouts) {
    transferred = 0;
    if (!open_)
        return usb::notOpen;
    // The pipes close one after the other: a call that begins after the first has is too late.
    if (!port_->isPlugged())
        return usb::noDevice;
    if (port_->description().isDeafWhileReadWaits && port_->in().waitingReads() > 0)
        return usb::timeout;
    VirtualUSBPipe* const target = pipeFor(pipe, USBDirection::out);
    return target ? target->hostWrite(data, transferred, timeouts) : usb::badArgument;
}

USBCode VirtualUSBInterface::clearPipeStallBothEnds(std::uint8_t pipe) {
    if (!open_)
        return usb::notOpen;
    return pipeProperties(pipe) ? port_->clearStall(pipe) : usb::badArgument;
}

std::unique_ptr<USBStream> VirtualUSBInterface::stream(std::uint8_t pipe, std::size_t requestSize,
                                                       std::size_t depth) {
    if (!open_ || depth == 0)
        return nullptr;
    if (VirtualUSBPipe* const source = pipeFor(pipe, USBDirection::in))
        return std::make_unique<VirtualUSBReadStream>(port_, *source, requestSize, depth);
    VirtualUSBPipe* const target = pipeFor(pipe, USBDirection::out);
    return target ? std::make_unique<VirtualUSBWriteStream>(port_, *target, requestSize, depth)
                  : nullptr;
}

USBCode VirtualUSBInterface::controlRequest(const USBControlRequest& request,
                                            std::span<std::byte> data, std::size_t& transferred,
                                            std::chrono::milliseconds) {
    transferred = 0;
    return open_ ? port_->control(request, data, transferred) : usb::notOpen;
}

} // namespace tessary
