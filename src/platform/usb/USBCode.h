#pragma once

#include <cstdint>

namespace tessary {

/// What a USB call of the platform returns: 0, or one of the codes below. The numbers are the ones
/// that IOKit uses on every platform, so that messages and logs read alike everywhere.
using USBCode = std::int32_t;

namespace usb {

constexpr USBCode platformCode(std::uint32_t raw) {
    return static_cast<USBCode>(raw);
}

inline constexpr USBCode success = 0;
inline constexpr USBCode generalError = platformCode(0xE00002BC);
inline constexpr USBCode noMemory = platformCode(0xE00002BD);
inline constexpr USBCode noDevice = platformCode(0xE00002C0);
inline constexpr USBCode badArgument = platformCode(0xE00002C2);
inline constexpr USBCode exclusiveAccess = platformCode(0xE00002C5);
inline constexpr USBCode unsupported = platformCode(0xE00002C7);
inline constexpr USBCode notOpen = platformCode(0xE00002CD);
inline constexpr USBCode timeout = platformCode(0xE00002D6);
inline constexpr USBCode notPermitted = platformCode(0xE00002E2);
inline constexpr USBCode overrun = platformCode(0xE00002E8);
inline constexpr USBCode aborted = platformCode(0xE00002EB);
inline constexpr USBCode pipeStalled = platformCode(0xE000404F);

} // namespace usb

} // namespace tessary
