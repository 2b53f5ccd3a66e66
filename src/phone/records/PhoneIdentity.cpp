#include "phone/records/PhoneIdentity.h"

namespace tessary {

PhoneIdentity identityOf(const DeviceInfo& device) {
    PhoneIdentity identity;
    identity.udid = device.udid;
    identity.platform = device.platform;
    identity.vendorId = static_cast<std::uint16_t>(device.vendorId);
    identity.productId = static_cast<std::uint16_t>(device.productId);
    // The substitute for a missing serial is not on the bus.
    const QString serial = device.serialNumber.value_or(QString());
    if (!serial.startsWith(QLatin1StringView("USB-")))
        identity.serialNumber = serial;
    identity.usbLocation = device.usbLocation;
    identity.attachment = device.handle;
    identity.name = device.deviceName.value_or(device.udid);
    return identity;
}

} // namespace tessary
