#include "devices/list/IPhoneDevices.h"

#include <algorithm>

namespace tessary {

namespace {

DeviceInfo deviceFrom(const MultiplexerEntry& entry) {
    DeviceInfo device;
    device.udid = entry.udid;
    device.platform = DevicePlatform::iOS;
    device.handle = entry.handle;
    device.productId = entry.productId;
    device.connectionType = entry.connectionType;
    device.protocolMode = ProtocolMode::afc;
    return device;
}

} // namespace

std::vector<DeviceInfo> iosDevices(std::span<const MultiplexerEntry> entries) {
    std::vector<DeviceInfo> devices;
    for (const MultiplexerEntry& entry : entries) {
        const auto known = std::find_if(devices.begin(), devices.end(), [&](const DeviceInfo& one) {
            return one.udid == entry.udid;
        });
        if (known == devices.end())
            devices.push_back(deviceFrom(entry));
        else if (known->connectionType == ConnectionType::network &&
                 entry.connectionType == ConnectionType::usb)
            *known = deviceFrom(entry);
    }
    return devices;
}

} // namespace tessary
