#pragma once

#include "platform/usb/USBBus.h"

#include <QByteArray>

#include <optional>
#include <vector>

namespace tessary {

/// One attached device as sysfs shows it.
struct USBRegistryEntry {
    USBDeviceEntry entry;
    QByteArray sysPath; ///< its folder in sysfs
    QByteArray node;    ///< "/dev/bus/usb/BBB/DDD"
};

/// Reads the attached devices from sysfs without opening any; libudev would read several times as
/// much for the same, and is asked only where a device has no name. Stateless, thus thread-safe.
///
/// The `id` of an entry is the inode number of its folder in sysfs. The kernel counts those up with
/// every object that appears and does not use one again while it runs, so that an id that was kept
/// for too long names nothing, rather than another device at the same place.
class USBRegistry {
public:
    /// In order of location. Hubs are left out: every machine has several, and each attribute that
    /// is read costs the kernel's time.
    [[nodiscard]] static std::vector<USBRegistryEntry> scan();
    [[nodiscard]] static std::optional<USBRegistryEntry> find(std::uint64_t id);
    /// The device of a folder in sysfs. No value when it is gone, or isn't a whole USB device.
    [[nodiscard]] static std::optional<USBRegistryEntry> read(const QByteArray& sysPath);
    /// Whether the folder of a device in sysfs is one of a hub.
    [[nodiscard]] static bool isHub(const QByteArray& sysPath);
    /// Whether the entry's folder is still the one that was read.
    [[nodiscard]] static bool isAttached(const USBRegistryEntry& entry);
};

} // namespace tessary
