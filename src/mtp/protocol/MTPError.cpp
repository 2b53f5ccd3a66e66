#include "mtp/protocol/MTPError.h"

#include <array>

namespace tessary {

namespace {

constexpr std::array names{"refused", "timeout",   "stalled", "pipe",     "notThere",
                           "held",    "brokenOff", "tooLong", "malformed"};
static_assert(names.size() == static_cast<std::size_t>(MTPError::malformed) + 1);

} // namespace

const char* errorName(MTPError error) {
    return names[static_cast<std::size_t>(error)];
}

MTPFailure MTPFailure::ofUSB(USBCode code) {
    return MTPFailure(code == usb::timeout       ? MTPError::timeout
                      : code == usb::pipeStalled ? MTPError::stalled
                                                 : MTPError::pipe,
                      {code});
}

std::optional<std::uint16_t> MTPFailure::response() const {
    return is(MTPError::refused)
               ? std::optional(static_cast<std::uint16_t>(arguments().value(0).toUInt()))
               : std::nullopt;
}

bool MTPFailure::isDeviceGone() const {
    return is(MTPError::notThere) ||
           (is(MTPError::pipe) && arguments().value(0).toInt() == usb::noDevice);
}

} // namespace tessary
