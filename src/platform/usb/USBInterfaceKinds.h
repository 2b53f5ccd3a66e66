#pragma once

#include <QString>

#include <cstdint>

namespace tessary {

/// Whether the device that is plugged in at a location ("1-4.2") has an interface of this class,
/// subclass and protocol, as far as the kernel has published it. Opens no device; false for what is
/// not there.
[[nodiscard]] bool hasUSBInterface(const QString& location, std::uint8_t interfaceClass,
                                   std::uint8_t subclass, std::uint8_t protocol);
/// The same with another folder in place of the kernel's.
[[nodiscard]] bool hasUSBInterfaceIn(const QString& folder, const QString& location,
                                     std::uint8_t interfaceClass, std::uint8_t subclass,
                                     std::uint8_t protocol);

} // namespace tessary
