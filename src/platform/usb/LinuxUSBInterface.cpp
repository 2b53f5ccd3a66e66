#include "platform/usb/LinuxUSBInterface.h"

#include "platform/usb/LibusbCodes.h"
#include "platform/usb/LibusbHandle.h"
#include "platform/usb/LibusbTransfer.h"
#include "platform/usb/LinuxUSBStream.h"

#include <algorithm>

namespace tessary {

using namespace std::chrono;
using Memory = LibusbTransfer::Memory;

namespace {

constexpr std::size_t maxStreamDepth = 64;
/// Below this, setting up a mapping costs more than the copy that it saves.
constexpr std::size_t worthMapping = 32 * 1024;

/// A time-out of 0 would be none at all further down.
steady_clock::time_point deadline(milliseconds timeout) {
    return steady_clock::now() + std::clamp(timeout, 1ms, milliseconds(1h));
}

std::uint16_t packetSize(const libusb_endpoint_descriptor& endpoint) {
    const auto size = static_cast<std::uint16_t>(endpoint.wMaxPacketSize & 0x7FF);
    return size <= 1024 ? size : std::uint16_t(0);
}

USBInterfaceDescription descriptionOf(const libusb_interface_descriptor& setting) {
    USBInterfaceDescription description{
        setting.bInterfaceNumber, setting.bInterfaceClass, setting.bInterfaceSubClass, {}};
    for (const auto& endpoint : std::span(setting.endpoint, setting.bNumEndpoints)) {
        const bool in = endpoint.bEndpointAddress & LIBUSB_ENDPOINT_IN;
        description.pipes.push_back(
            {in ? USBDirection::in : USBDirection::out,
             static_cast<USBTransferType>(endpoint.bmAttributes & LIBUSB_TRANSFER_TYPE_MASK),
             packetSize(endpoint)});
    }
    return description;
}

/// A read that ends within a packet fails when the device fills that packet.
std::size_t roundUpToPackets(std::size_t length, std::size_t packet) {
    if (packet == 0)
        packet = 1024;
    return (length + packet - 1) / packet * packet;
}

void copy(std::span<std::byte> to, std::span<const std::byte> from) {
    std::ranges::copy(from.first(std::min(from.size(), to.size())), to.begin());
}

} // namespace

LinuxUSBInterface::LinuxUSBInterface(const LibusbHandle& handle,
                                     const libusb_interface_descriptor& setting)
    : USBInterface(descriptionOf(setting)), handle_(handle) {
    for (const auto& endpoint : std::span(setting.endpoint, setting.bNumEndpoints))
        addresses_.push_back(endpoint.bEndpointAddress);
}

LinuxUSBInterface::~LinuxUSBInterface() {
    close();
}

USBCode LinuxUSBInterface::claim(bool fromKernel) {
    if (open_)
        return usb::success;
    // With "auto detach" libusb takes the interface from a kernel driver and claims it in one step,
    // leaves it alone when another program claimed it, and gives it back on release.
    libusb_set_auto_detach_kernel_driver(handle_.get(), fromKernel);
    const USBCode code = usbCodeOfError(libusb_claim_interface(handle_.get(), number()));
    open_ = code == usb::success;
    seized_ = fromKernel;
    return code;
}

void LinuxUSBInterface::close() {
    if (!open_.exchange(false))
        return;
    libusb_set_auto_detach_kernel_driver(handle_.get(), seized_);
    libusb_release_interface(handle_.get(), number());
}

std::optional<LinuxUSBInterface::Pipe> LinuxUSBInterface::dataPipe(std::uint8_t number,
                                                                   USBDirection direction) const {
    const auto properties = pipeProperties(number);
    const bool carriesData = properties && properties->direction == direction &&
                             (properties->transferType == USBTransferType::bulk ||
                              properties->transferType == USBTransferType::interrupt);
    return carriesData ? std::optional(Pipe{addresses_[number - 1U], *properties}) : std::nullopt;
}

USBCode LinuxUSBInterface::carryOut(LibusbTransfer& transfer, const Pipe& pipe, std::size_t length,
                                    USBTimeouts timeouts) {
    const USBCode code = transfer.submit(pipe.address, libusbType(pipe.properties), length);
    return code == usb::success ? transfer.finish(deadline(timeouts.limit), timeouts.stop) : code;
}

USBCode LinuxUSBInterface::readPipeTO(std::uint8_t pipe, std::span<std::byte> buffer,
                                      std::size_t& transferred, USBTimeouts timeouts) {
    transferred = 0;
    if (!open_)
        return usb::notOpen;
    const auto source = dataPipe(pipe, USBDirection::in);
    if (!source || buffer.empty() || buffer.size() > maxRequestSize)
        return usb::badArgument;
    const std::size_t length = roundUpToPackets(buffer.size(), source->properties.maxPacketSize);
    const auto transfer = LibusbTransfer::make(handle_, length, Memory::heap);
    if (!transfer)
        return usb::noMemory;
    const USBCode code = carryOut(*transfer, *source, length, timeouts);
    const std::size_t arrived = transfer->transferred();
    copy(buffer, transfer->buffer().first(arrived));
    transferred = std::min(arrived, buffer.size());
    return arrived > buffer.size() ? usb::overrun : code;
}

USBCode LinuxUSBInterface::writePipeTO(std::uint8_t pipe, std::span<const std::byte> data,
                                       std::size_t& transferred, USBTimeouts timeouts) {
    transferred = 0;
    if (!open_)
        return usb::notOpen;
    const auto target = dataPipe(pipe, USBDirection::out);
    if (!target || data.size() > maxRequestSize)
        return usb::badArgument;
    const auto transfer = LibusbTransfer::make(handle_, data.size(), Memory::heap);
    if (!transfer)
        return usb::noMemory;
    copy(transfer->buffer(), data);
    const USBCode code = carryOut(*transfer, *target, data.size(), timeouts);
    transferred = transfer->transferred();
    return code;
}

USBCode LinuxUSBInterface::clearPipeStallBothEnds(std::uint8_t pipe) {
    if (!open_)
        return usb::notOpen;
    if (!pipeProperties(pipe))
        return usb::badArgument;
    return usbCodeOfError(libusb_clear_halt(handle_.get(), addresses_[pipe - 1U]));
}

std::unique_ptr<USBStream> LinuxUSBInterface::stream(std::uint8_t pipe, std::size_t requestSize,
                                                     std::size_t depth) {
    const auto in = dataPipe(pipe, USBDirection::in);
    const auto end = in ? in : dataPipe(pipe, USBDirection::out);
    if (!open_ || !end || requestSize < 1 || requestSize > maxRequestSize || depth < 1 ||
        depth > maxStreamDepth)
        return nullptr;
    std::vector<std::unique_ptr<LibusbTransfer>> transfers;
    const Memory memory = requestSize < worthMapping ? Memory::heap : Memory::mapped;
    for (std::size_t i = 0; i < depth; ++i) {
        transfers.push_back(LibusbTransfer::make(handle_, requestSize, memory));
        if (!transfers.back())
            return nullptr;
    }
    return std::make_unique<LinuxUSBStream>(std::move(transfers), end->address, end->properties);
}

USBCode LinuxUSBInterface::controlRequest(const USBControlRequest& request,
                                          std::span<std::byte> data, std::size_t& transferred,
                                          milliseconds timeout) {
    transferred = 0;
    if (!open_)
        return usb::notOpen;
    if (data.size() > UINT16_MAX)
        return usb::badArgument;
    const auto transfer =
        LibusbTransfer::make(handle_, LIBUSB_CONTROL_SETUP_SIZE + data.size(), Memory::heap);
    if (!transfer)
        return usb::noMemory;
    const bool in = request.requestType & LIBUSB_ENDPOINT_IN;
    const std::span<std::byte> payload = transfer->buffer().subspan(LIBUSB_CONTROL_SETUP_SIZE);
    libusb_fill_control_setup(reinterpret_cast<unsigned char*>(transfer->buffer().data()),
                              request.requestType, request.request, request.value, request.index,
                              static_cast<std::uint16_t>(data.size()));
    if (!in)
        copy(payload, data);
    USBCode code = transfer->submitControl();
    if (code != usb::success)
        return code;
    code = transfer->finish(deadline(timeout));
    transferred = std::min(transfer->transferred(), data.size());
    if (in)
        copy(data, payload.first(transferred));
    return code;
}

} // namespace tessary
