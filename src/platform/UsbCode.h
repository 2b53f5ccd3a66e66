#pragma once

#include <cstdint>

namespace tessary {

/// What a USB call of the platform returns: 0, or one of the codes below. The numbers are the ones
/// that IOKit uses on every platform, so that messages and logs read alike everywhere.
using UsbCode = std::int32_t;

namespace usb {

constexpr UsbCode platformCode(std::uint32_t raw) {
    return static_cast<UsbCode>(raw);
}

inline constexpr UsbCode success = 0;
inline constexpr UsbCode generalError = platformCode(0xE00002BC);
inline constexpr UsbCode noMemory = platformCode(0xE00002BD);
inline constexpr UsbCode noDevice = platformCode(0xE00002C0);
inline constexpr UsbCode badArgument = platformCode(0xE00002C2);
inline constexpr UsbCode exclusiveAccess = platformCode(0xE00002C5);
inline constexpr UsbCode unsupported = platformCode(0xE00002C7);
inline constexpr UsbCode notOpen = platformCode(0xE00002CD);
inline constexpr UsbCode timeout = platformCode(0xE00002D6);
inline constexpr UsbCode notPermitted = platformCode(0xE00002E2);
inline constexpr UsbCode overrun = platformCode(0xE00002E8);
inline constexpr UsbCode aborted = platformCode(0xE00002EB);
inline constexpr UsbCode pipeStalled = platformCode(0xE000404F);

} // namespace usb

} // namespace tessary
