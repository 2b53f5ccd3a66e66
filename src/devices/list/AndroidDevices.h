#pragma once

#include "phone/records/DeviceInfo.h"
#include "platform/usb/USBBus.h"

#include <QHash>

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace tessary {

/// USB IDs of a device that is to count as an Android phone although no rule knows it.
struct USBIds {
    std::uint16_t vendorID = 0;
    std::uint16_t productID = 0;

    bool operator==(const USBIds&) const = default;
};

/// The Android device (or camera) behind a USB entry, by what its interfaces speak, its vendor or
/// its names; no value for anything else, and for what has only interfaces that no phone is for.
/// Its volumes and battery are not known yet, and it is in MTP mode.
[[nodiscard]] std::optional<DeviceInfo> extractAndroidDevice(const USBDeviceEntry& from);

/// The udids that devices have, by the id of their attachment.
using AttachedUdids = QHash<std::uint64_t, QString>;

/// The Android devices among the entries of a bus, in the same order. A device in `named` keeps
/// the udid that it has there. Others have their serial number or the stand-in for it; one whose
/// udid is taken already (two phones without a serial number, or with the same one) gets its
/// location added to it. Pure.
[[nodiscard]] std::vector<DeviceInfo> androidDevices(std::span<const USBDeviceEntry> entries,
                                                     std::span<const USBIds> alsoAccept,
                                                     const AttachedUdids& named = {});

} // namespace tessary
