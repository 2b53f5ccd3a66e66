#pragma once

namespace tessary {

class Multiplexer;
class USBBus;

/// Where devices come from. References: both must outlive whoever is given this.
struct DeviceSources {
    DeviceSources(USBBus& bus, Multiplexer* phones = nullptr, bool withADB = false)
        : usb(bus), multiplexer(phones), asksADB(withADB) {}

    USBBus& usb;
    Multiplexer* multiplexer; ///< null: no iPhones
    bool asksADB;             ///< whether the adb of this machine is asked for phones, too
};

} // namespace tessary
