#pragma once

#include "phones/Guarded.h"
#include "phones/VirtualUsbFunction.h"
#include "phones/VirtualUsbPipe.h"

#include <functional>
#include <mutex>
#include <set>

namespace tessary {

/// What opening a virtual device or its interfaces answers. usb::exclusiveAccess for all four: held
/// by another program; only for the two without seize: held by the kernel's driver.
struct VirtualOpenFaults {
    UsbCode deviceOpen = usb::success;
    UsbCode deviceSeize = usb::success;
    UsbCode interfaceOpen = usb::success;
    UsbCode interfaceSeize = usb::success;
};

/// One attachment of a virtual device: the pipes between the device and the handles that the host
/// has of it, which may outlive the attachment. Thread-safe.
class VirtualUsbPort {
public:
    static constexpr std::uint8_t inPipe = 1;
    static constexpr std::uint8_t outPipe = 2;
    static constexpr std::uint8_t eventPipe = 3;

    /// `whenUnplugged` is called once, by the thread that pulls the cable.
    VirtualUsbPort(VirtualUsbFunction& function, UsbDeviceEntry entry,
                   std::function<void()> whenUnplugged);

    [[nodiscard]] const UsbDeviceEntry& entry() const {
        return entry_;
    }
    [[nodiscard]] const VirtualUsbDescription& description() const {
        return description_;
    }
    [[nodiscard]] VirtualUsbPipe& in() {
        return in_;
    }
    [[nodiscard]] VirtualUsbPipe& out() {
        return out_;
    }
    /// Null for a pipe number that does not exist.
    [[nodiscard]] VirtualUsbPipe* pipe(std::uint8_t number);

    /// Hands `self`, which is this port, to the function. Once.
    void plug(const std::shared_ptr<VirtualUsbPort>& self);
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
    UsbCode claim(std::uint8_t interfaceNumber);
    void release(std::uint8_t interfaceNumber);

    UsbCode control(const UsbControlRequest& request, std::span<std::byte> data,
                    std::size_t& transferred);
    UsbCode clearStall(std::uint8_t number);

private:
    const UsbDeviceEntry entry_;
    const VirtualUsbDescription description_;
    VirtualUsbPipe in_;
    VirtualUsbPipe out_;
    VirtualUsbPipe events_;
    Guarded<VirtualOpenFaults> openFaults_;
    const std::function<void()> whenUnplugged_;

    mutable std::mutex
        mutex_; ///< guards both; recursive use is excluded by the function's contract
    std::set<std::uint8_t> claimed_;
    bool plugged_ = true;

    std::mutex functionMutex_; ///< held while the function is called; guards function_
    VirtualUsbFunction* function_;
};

} // namespace tessary
