#pragma once

#include "core/DeviceInfo.h"
#include "platform/UsbBus.h"

#include <optional>
#include <vector>

namespace tessary {

/// USB IDs of a device that is to count as an Android phone although no rule knows it.
struct UsbIds {
    std::uint16_t vendorID = 0;
    std::uint16_t productID = 0;

    bool operator==(const UsbIds&) const = default;
};

/// The Android device behind a USB entry, by its vendor or its names; no value for anything else.
/// Its volumes and battery are not known yet, and it is in MTP mode.
[[nodiscard]] std::optional<DeviceInfo> extractAndroidDevice(const UsbDeviceEntry& from);

/// Every Android device on the bus, in order of location. Two that would have the same udid (no
/// serial number, or the same one) get their location added to it, all but the one whose location
/// comes first. Opens no device.
[[nodiscard]] std::vector<DeviceInfo> scanAndroidDevices(UsbBus& bus,
                                                         const std::vector<UsbIds>& alsoAccept);

} // namespace tessary
