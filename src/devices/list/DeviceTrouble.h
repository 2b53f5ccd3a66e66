#pragma once

#include "phone/PhoneError.h"

namespace tessary {

/// What can keep a phone from being used as the user chose.
enum class DeviceError {
    turboUnavailable, ///< Turbo mode was chosen, and this machine has no way to it: MTP is used
};

[[nodiscard]] constexpr ErrorLayer errorLayer(DeviceError) {
    return ErrorLayer::device;
}
[[nodiscard]] constexpr const char* errorName(DeviceError) {
    return "turboUnavailable";
}

/// Why an attached device cannot be read at the moment, or not as it was chosen. A value.
struct DeviceTrouble {
    Error error;

    /// Other programs use it.
    [[nodiscard]] bool isHeld() const {
        return error.is(PhoneError::held);
    }
    bool operator==(const DeviceTrouble&) const = default;
};

} // namespace tessary
