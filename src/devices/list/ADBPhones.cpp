#include "devices/list/ADBPhones.h"

#include "base/text/Printable.h"

#include <algorithm>

namespace tessary {

namespace {

bool isTheSame(const DeviceInfo& phone, const ADBDevice& device) {
    if (device.path == QStringLiteral("usb:") + phone.usbLocation && !phone.usbLocation.isEmpty())
        return true;
    // With a place on the bus, the serial number alone might be that of a twin.
    const bool isPlaced = !device.path.isEmpty() && !phone.usbLocation.isEmpty();
    return !isPlaced &&
           (device.serial == phone.serialNumber ||
            (!device.phoneSerial.isEmpty() && device.phoneSerial == phone.serialNumber));
}

DeviceInfo phoneOf(const ADBDevice& device) {
    DeviceInfo phone;
    phone.udid = device.serial;
    phone.serialNumber = device.serial;
    phone.platform = DevicePlatform::android;
    phone.connectionType = ConnectionType::network;
    phone.protocolMode = ProtocolMode::adbTurbo;
    phone.deviceName = shortened(device.model.isEmpty() ? device.serial : device.model);
    return phone;
}

} // namespace

void addADBPhones(std::vector<DeviceInfo>& phones, const std::vector<ADBDevice>& reached) {
    const std::size_t onBus = phones.size();
    for (const ADBDevice& device : reached) {
        bool isListed = false;
        for (std::size_t n = 0; n < onBus; ++n) {
            if (phones[n].platform != DevicePlatform::android || !isTheSame(phones[n], device))
                continue;
            isListed = true;
            if (device.isReady())
                phones[n].protocolMode = ProtocolMode::adbTurbo;
        }
        const bool isTaken = std::any_of(phones.begin(), phones.end(), [&](const DeviceInfo& one) {
            return one.udid == device.serial;
        });
        if (!isListed && !isTaken)
            phones.push_back(phoneOf(device));
    }
}

} // namespace tessary
