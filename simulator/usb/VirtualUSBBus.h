#pragma once

#include "simulator/usb/VirtualUSBPort.h"

namespace tessary {

/// A USB bus without hardware: virtual devices are attached and detached at run time. Watches are
/// called on the bus's own thread. Thread-safe. Handles that outlive the bus answer usb::noDevice.
class VirtualUSBBus : public USBBus {
public:
    VirtualUSBBus();
    /// Detaches everything.
    ~VirtualUSBBus() override;
    VirtualUSBBus(const VirtualUSBBus&) = delete;
    VirtualUSBBus& operator=(const VirtualUSBBus&) = delete;

    /// Plugs a device in at `location` ("1-4.2"), which must be free, and returns the id of this
    /// attachment (0 when the location is taken). `function` must stay until it is unplugged.
    std::uint64_t attach(VirtualUSBFunction& function, const QString& location);
    /// Pulls the cable: calls that are waiting end with usb::noDevice. False when nothing is there.
    bool detach(const QString& location);

    // Settings of a location; they stay when a device is unplugged and plugged in again.

    void setOpenFaults(const QString& location, const VirtualOpenFaults& faults);
    void setProgramsHolding(const QString& location, const QStringList& programs);

    [[nodiscard]] std::vector<USBDeviceEntry> devices() override;
    [[nodiscard]] std::unique_ptr<USBDevice> device(std::uint64_t id) override;
    [[nodiscard]] std::unique_ptr<USBWatch>
    watch(std::function<void(const USBEvent&)> callback) override;
    [[nodiscard]] QStringList programsHolding(std::uint64_t id) override;

private:
    class State;
    std::shared_ptr<State> state_; ///< also held by watches, weakly by ports
};

} // namespace tessary
