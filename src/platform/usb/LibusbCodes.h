#pragma once

#include "platform/usb/USBCode.h"

#include <libusb-1.0/libusb.h>

#include <array>
#include <utility>

namespace tessary {

/// The platform's code for what a libusb function returns; a value above 0 is a success (a count).
[[nodiscard]] constexpr USBCode usbCodeOfError(int error) {
    constexpr std::array<std::pair<libusb_error, USBCode>, 12> table{{
        {LIBUSB_ERROR_ACCESS, usb::notPermitted},
        {LIBUSB_ERROR_BUSY, usb::exclusiveAccess},
        {LIBUSB_ERROR_NO_DEVICE, usb::noDevice},
        {LIBUSB_ERROR_NOT_FOUND, usb::noDevice},
        {LIBUSB_ERROR_TIMEOUT, usb::timeout},
        {LIBUSB_ERROR_PIPE, usb::pipeStalled},
        {LIBUSB_ERROR_OVERFLOW, usb::overrun},
        {LIBUSB_ERROR_INTERRUPTED, usb::aborted},
        {LIBUSB_ERROR_NO_MEM, usb::noMemory},
        {LIBUSB_ERROR_NOT_SUPPORTED, usb::unsupported},
        {LIBUSB_ERROR_INVALID_PARAM, usb::badArgument},
        {LIBUSB_ERROR_IO, usb::generalError},
    }};
    if (error >= 0)
        return usb::success;
    for (const auto& [from, to] : table)
        if (from == error)
            return to;
    return usb::generalError;
}

/// The same for the status of a finished transfer, told as the error that stands for it.
[[nodiscard]] constexpr USBCode usbCodeOfStatus(libusb_transfer_status status) {
    constexpr std::array<std::pair<libusb_transfer_status, libusb_error>, 6> table{{
        {LIBUSB_TRANSFER_COMPLETED, LIBUSB_SUCCESS},
        {LIBUSB_TRANSFER_TIMED_OUT, LIBUSB_ERROR_TIMEOUT},
        {LIBUSB_TRANSFER_CANCELLED, LIBUSB_ERROR_INTERRUPTED},
        {LIBUSB_TRANSFER_STALL, LIBUSB_ERROR_PIPE},
        {LIBUSB_TRANSFER_NO_DEVICE, LIBUSB_ERROR_NO_DEVICE},
        {LIBUSB_TRANSFER_OVERFLOW, LIBUSB_ERROR_OVERFLOW},
    }};
    for (const auto& [from, to] : table)
        if (from == status)
            return usbCodeOfError(to);
    return usb::generalError;
}

} // namespace tessary
