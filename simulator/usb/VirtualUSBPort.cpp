#include "simulator/usb/VirtualUSBPort.h"

#include <utility>

namespace tessary {

namespace {

constexpr std::size_t eventPacketSize = 64;
constexpr std::size_t eventCapacity = 1024;

} // namespace

VirtualUSBPort::VirtualUSBPort(VirtualUSBFunction& function, USBDeviceEntry entry,
                               std::function<void()> whenUnplugged)
    : entry_(std::move(entry)),
      description_(function.description()),
      in_(description_.maxPacketSize),
      out_(description_.maxPacketSize),
      events_(eventPacketSize, eventCapacity),
      whenUnplugged_(std::move(whenUnplugged)),
      function_(&function) {}

VirtualUSBPipe* VirtualUSBPort::pipe(std::uint8_t number) {
    switch (number) {
    case inPipe:
        return &in_;
    case outPipe:
        return &out_;
    case eventPipe:
        return &events_;
    default:
        return nullptr;
    }
}

void VirtualUSBPort::plug(const std::shared_ptr<VirtualUSBPort>& self) {
    const std::lock_guard lock(functionMutex_);
    if (function_)
        function_->plugged(self);
}

void VirtualUSBPort::unplug() {
    {
        const std::lock_guard lock(mutex_);
        if (!plugged_)
            return;
        plugged_ = false;
    }
    {
        const std::lock_guard lock(functionMutex_);
        std::exchange(function_, nullptr)->unplugged();
    }
    // Off the bus before any call ends with usb::noDevice: who sees that may plug in again.
    whenUnplugged_();
    in_.close();
    out_.close();
    events_.close();
}

void VirtualUSBPort::waitUnused() {
    const std::lock_guard lock(functionMutex_);
}

bool VirtualUSBPort::isPlugged() const {
    const std::lock_guard lock(mutex_);
    return plugged_;
}

USBCode VirtualUSBPort::claim(std::uint8_t interfaceNumber) {
    const std::lock_guard lock(mutex_);
    if (!plugged_)
        return usb::noDevice;
    return claimed_.insert(interfaceNumber).second ? usb::success : usb::exclusiveAccess;
}

void VirtualUSBPort::release(std::uint8_t interfaceNumber) {
    const std::lock_guard lock(mutex_);
    claimed_.erase(interfaceNumber);
}

USBCode VirtualUSBPort::control(const USBControlRequest& request, std::span<std::byte> data,
                                std::size_t& transferred) {
    const std::lock_guard lock(functionMutex_);
    return function_ ? function_->control(request, data, transferred) : usb::noDevice;
}

USBCode VirtualUSBPort::clearStall(std::uint8_t number) {
    VirtualUSBPipe* const halted = pipe(number);
    if (!halted)
        return usb::badArgument;
    const std::lock_guard lock(functionMutex_);
    if (!function_)
        return usb::noDevice;
    function_->haltCleared(number, halted->hostClearStall());
    return usb::success;
}

} // namespace tessary
