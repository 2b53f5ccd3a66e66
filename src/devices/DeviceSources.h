#pragma once

namespace tessary {

class Multiplexer;
class UsbBus;

/// Where devices come from. References: both must outlive whoever is given this.
struct DeviceSources {
    DeviceSources(UsbBus& bus, Multiplexer* phones = nullptr, bool withAdb = false)
        : usb(bus), multiplexer(phones), asksAdb(withAdb) {}

    UsbBus& usb;
    Multiplexer* multiplexer; ///< null: no iPhones
    bool asksAdb;             ///< whether the adb of this machine is asked for phones, too
};

} // namespace tessary
