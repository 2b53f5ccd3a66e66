#pragma once

#include <QString>

#include <cstdint>

namespace tessary {

/// One storage of a device. A value; `id` is unique within one device.
struct StorageVolume {
    QString id;
    QString name;
    /// Capacity and free space in bytes. Whoever takes them from a device clamps them to the
    /// signed 64-bit range; free may exceed total.
    std::uint64_t totalBytes = 0;
    std::uint64_t freeBytes = 0;
    bool isSDCard = false;

    /// 0 when more is free than there is.
    [[nodiscard]] qint64 usedBytes() const;
    /// Used share between 0 and 1; 0 for an unknown capacity.
    [[nodiscard]] double usageRatio() const;

    bool operator==(const StorageVolume&) const = default;
};

} // namespace tessary
