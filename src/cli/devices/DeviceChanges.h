#pragma once

#include "cli/devices/DeviceFollower.h"

#include <QJsonObject>
#include <QStringList>

namespace tessary {

/// One thing that happened between two snapshots. A value.
struct DeviceChange {
    enum class Kind { attached, detached, changed, conflict };
    Kind kind = Kind::attached;
    DeviceInfo device; ///< as it is now; of a detached one as it was; none for `conflict`
    std::optional<DeviceTrouble> trouble;
    QStringList fields; ///< of `changed`: the names of the record's fields, or "trouble"
    bool hasUSBConflict = false;
};

/// What keeps a device of a snapshot from being read.
[[nodiscard]] std::optional<DeviceTrouble> troubleOf(const DeviceSnapshot& snapshot,
                                                     const DeviceInfo& device);

/// What happened, devices that went first. Pure.
[[nodiscard]] std::vector<DeviceChange> changesBetween(const DeviceSnapshot& before,
                                                       const DeviceSnapshot& after);

/// A device with what keeps it from being read.
[[nodiscard]] QJsonObject toJson(const DeviceInfo& device,
                                 const std::optional<DeviceTrouble>& trouble);
/// "event", and "device", "fields" or "hasUSBConflict" according to it.
[[nodiscard]] QJsonObject toJson(const DeviceChange& change);

/// One line of a terminal each.
[[nodiscard]] QString deviceLine(const DeviceInfo& device,
                                 const std::optional<DeviceTrouble>& trouble);
[[nodiscard]] QString changeLine(const DeviceChange& change);

} // namespace tessary
