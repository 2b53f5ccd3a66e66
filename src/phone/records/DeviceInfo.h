#pragma once

#include "phone/records/StorageVolume.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace tessary {

enum class DevicePlatform { iOS, android };

[[nodiscard]] QString rawValue(DevicePlatform platform);
/// Of this program's own icons.
[[nodiscard]] QString iconName(DevicePlatform platform);

/// How a device is attached; the numbers are those of the USB multiplexer's device list.
enum class ConnectionType : std::uint32_t { usb = 1, network = 2 };

/// How the files of a device are reached. The raw value is also the label that the user sees.
enum class ProtocolMode { afc, mtp, adbTurbo };

[[nodiscard]] QString rawValue(ProtocolMode mode);
[[nodiscard]] std::optional<ProtocolMode> protocolModeFromRawValue(const QString& text);

/// One attached device. A value: equality covers every field, so that any change of a
/// detail makes the published list differ; `id()` is the narrower identity of a list row.
struct DeviceInfo {
    QString udid; ///< iOS UDID, or the Android serial or substitute
    DevicePlatform platform = DevicePlatform::iOS;
    std::uint32_t handle = 0; ///< attachment handle of the multiplexer; 0 for Android
    std::uint32_t productId = 0;
    std::uint32_t vendorId = 0;
    ConnectionType connectionType = ConnectionType::usb;
    ProtocolMode protocolMode = ProtocolMode::afc;
    std::optional<QString> deviceName;
    std::optional<QString> manufacturer;
    std::optional<QString> serialNumber;
    std::optional<int> batteryLevel; ///< percent
    bool isLocked = false;
    std::optional<qint64> freeStorageBytes;
    std::optional<qint64> totalStorageBytes;
    std::vector<StorageVolume> volumes; ///< empty until known
    /// Where the device is plugged in ("1-4.2"); empty when it is not on this machine's USB bus.
    /// Tells two phones of one model apart that have no serial number, or the same one.
    QString usbLocation;

    /// `udid`, "-" and the handle: two attachments with different handles are different rows.
    [[nodiscard]] QString id() const;
    /// Locked devices have no data; an Android device has data once its volumes are known.
    [[nodiscard]] bool isDataAccessible() const;
    /// The first of its storages, or the whole of an iPhone; without a size while nobody knows it.
    [[nodiscard]] StorageVolume mainStorage() const;

    bool operator==(const DeviceInfo&) const = default;
};

/// What a device tells of itself between operations.
struct LiveDeviceInfo {
    std::optional<int> battery; ///< percent
    std::vector<StorageVolume> volumes;

    bool operator==(const LiveDeviceInfo&) const = default;
};

} // namespace tessary
