#pragma once

#include "simulator/usb/VirtualUSBFunction.h"
#include "simulator/usb/VirtualUSBPipe.h"
#include "simulator/wire/Guarded.h"

#include <functional>
#include <mutex>
#include <set>

namespace tessary {

/// What opening a virtual device or its interfaces answers. usb::exclusiveAccess for both of an
/// interface: held by another program; only for the one without seize: by the kernel's driver.
struct VirtualOpenFaults {
    USBCode deviceOpen = usb::success;
    USBCode interfaceOpen = usb::success;
    USBCode interfaceSeize = usb::success;
};

/// One attachment of a virtual device: the pipes between the device and the handles that the host
/// has of it, which may outlive the attachment. Thread-safe.
class VirtualUSBPort {
public:
    static constexpr std::uint8_t inPipe = 1;
    static constexpr std::uint8_t outPipe = 2;
    static constexpr std::uint8_t eventPipe = 3;

    /// `whenUnplugged` is called once, by the thread that pulls the cable.
    VirtualUSBPort(VirtualUSBFunction& function, USBDeviceEntry entry,
                   std::function<void()> whenUnplugged);

    [[nodiscard]] const USBDeviceEntry& entry() const {
        return entry_;
    }
    [[nodiscard]] const VirtualUSBDescription& description() const {
        return description_;
    }
    [[nodiscard]] VirtualUSBPipe& in() {
        return in_;
    }
    [[nodiscard]] VirtualUSBPipe& out() {
        return out_;
    }
    [[nodiscard]] VirtualUSBPipe& events() {
        return events_;
    }
    /// Null for a pipe number that does not exist.
    [[nodiscard]] VirtualUSBPipe* pipe(std::uint8_t number);

    /// Hands `self`, which is this port, to the function. Once.
    void plug(const std::shared_ptr<VirtualUSBPort>& self);
    /// Pulls the cable: tells the function and the bus, then closes the pipes. Later calls do
    /// nothing.
    void unplug();
    /// After unplug(): waits until no other thread is inside the function.
    void waitUnused();
    [[nodiscard]] bool isPlugged() const;

    [[nodiscard]] Guarded<VirtualOpenFaults>& openFaults() {
        return openFaults_;
    }

    /// One open handle of an interface at a time: usb::exclusiveAccess for a second one.
    USBCode claim(std::uint8_t interfaceNumber);
    void release(std::uint8_t interfaceNumber);

    USBCode control(const USBControlRequest& request, std::span<std::byte> data,
                    std::size_t& transferred);
    USBCode clearStall(std::uint8_t number);

private:
    const USBDeviceEntry entry_;
    const VirtualUSBDescription description_;
    VirtualUSBPipe in_;
    VirtualUSBPipe out_;
    VirtualUSBPipe events_;
    Guarded<VirtualOpenFaults> openFaults_;
    const std::function<void()> whenUnplugged_;

    mutable std::mutex
        mutex_; ///< guards both; recursive use is excluded by the function's contract
    std::set<std::uint8_t> claimed_;
    bool plugged_ = true;

    std::mutex functionMutex_; ///< held while the function is called; guards function_
    VirtualUSBFunction* function_;
};

} // namespace tessary
