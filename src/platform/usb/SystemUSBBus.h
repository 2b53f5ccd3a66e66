#pragma once

#include "platform/usb/USBBus.h"

#include <memory>

namespace tessary {

/// The USB devices of this machine; never null. Where there is no USB at all the bus is empty, and
/// nothing is logged about it.
[[nodiscard]] std::unique_ptr<USBBus> makeSystemUSBBus();

} // namespace tessary
