#pragma once

#include "phone/records/StorageVolume.h"

#include <optional>
#include <vector>

namespace tessary {

/// What a device tells of itself between operations.
struct LiveDeviceInfo {
    std::optional<int> battery; ///< percent
    std::vector<StorageVolume> volumes;

    bool operator==(const LiveDeviceInfo&) const = default;
};

} // namespace tessary
