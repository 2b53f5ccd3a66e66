#pragma once

namespace tessary {

class Multiplexer;
class UsbBus;

/// Where devices come from. References: both must outlive whoever is given this.
struct DeviceSources {
    DeviceSources(UsbBus& bus, Multiplexer* phones = nullptr) : usb(bus), multiplexer(phones) {}

    UsbBus& usb;
    Multiplexer* multiplexer; ///< null: no iPhones
};

} // namespace tessary
