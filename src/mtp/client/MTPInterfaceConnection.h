#pragma once

#include "platform/usb/USBBus.h"

#include <memory>

namespace tessary {

/// Which phone to open: the USB IDs, and what tells two phones of one model apart.
struct MTPDeviceAddress {
    std::uint32_t vendorID = 0;
    std::uint32_t productID = 0;
    QString serialNumber; ///< empty: the device has none, or it does not matter
    QString location;     ///< USBDeviceEntry::location; empty: not known
};

/// An open MTP interface and its pipes; closed when it goes.
struct MTPInterfaceConnection {
    std::unique_ptr<USBDevice> device;
    std::unique_ptr<USBInterface> interface;
    std::uint8_t inPipe = 0;
    std::uint8_t outPipe = 0;
    std::uint8_t eventPipe = 0;      ///< interrupt; 0: there is none
    std::uint16_t maxPacketSize = 0; ///< bytes, at least 8
};

/// Finds the device and opens its MTP interface: still image class, else a vendor specific one that
/// is called "MTP", has subclass 1, or subclass 255 and the three pipes of MTP. An interface that a
/// driver holds is seized. Of several devices with the same IDs the one at the address's location
/// is taken, else the one with its serial number; without either a choice between two is refused.
///
/// Throws MTPFailure: MTPError::notThere or ::held, ::malformed for such a choice, or that of the
/// USB call.
[[nodiscard]] MTPInterfaceConnection openMTPInterface(USBBus& bus, const MTPDeviceAddress& address);

/// The bus entry that an address means; no value when it is not attached, or not certain.
[[nodiscard]] std::optional<USBDeviceEntry> findMTPDevice(USBBus& bus,
                                                          const MTPDeviceAddress& address);

} // namespace tessary
