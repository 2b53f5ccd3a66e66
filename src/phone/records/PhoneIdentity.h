#pragma once

#include "phone/records/DeviceInfo.h"

#include <QString>

#include <cstdint>

namespace tessary {

/// Which phone is meant, and where it is attached: what opens one. Nothing in it changes while the
/// phone stays plugged in, so that no polled figure is ever a reason to open it anew.
struct PhoneIdentity {
    QString udid; ///< iOS UDID, or the Android serial or substitute
    DevicePlatform platform = DevicePlatform::android;
    std::uint16_t vendorId = 0;
    std::uint16_t productId = 0;
    QString serialNumber; ///< empty where there is none, or only a substitute
    /// Where it is plugged in ("1-4.2"); empty when it is not on this machine's USB bus.
    QString usbLocation;
    std::uint32_t attachment = 0; ///< handle of the multiplexer; another one at each plugging
    QString name;                 ///< as the user knows it

    /// Two of one key are one phone: it has one queue.
    [[nodiscard]] QString key() const {
        return udid + QLatin1Char('@') + usbLocation;
    }

    bool operator==(const PhoneIdentity&) const = default;
};

[[nodiscard]] PhoneIdentity identityOf(const DeviceInfo& device);

} // namespace tessary
