#include "platform/linux/LibusbCodes.h"

#include <gtest/gtest.h>

namespace tessary {
namespace {

struct Row {
    const char* name;
    UsbCode got;
    UsbCode expected;
};

// What the layers above tell apart: which message a user sees, and whether to retry, to seize the
// interface, to clear a stall or to give up.
TEST(LibusbCodes, keepApartWhatCallersActOn) {
    const Row rows[] = {
        {"no permission", usbCodeOfError(LIBUSB_ERROR_ACCESS), usb::notPermitted},
        {"claimed elsewhere", usbCodeOfError(LIBUSB_ERROR_BUSY), usb::exclusiveAccess},
        {"unplugged", usbCodeOfError(LIBUSB_ERROR_NO_DEVICE), usb::noDevice},
        {"interface vanished", usbCodeOfError(LIBUSB_ERROR_NOT_FOUND), usb::noDevice},
        {"a stall at a control request", usbCodeOfError(LIBUSB_ERROR_PIPE), usb::pipeStalled},
        {"a number of bytes is no error", usbCodeOfError(18), usb::success},
        {"a number that no version defines", usbCodeOfError(-4711), usb::generalError},
        {"finished", usbCodeOfStatus(LIBUSB_TRANSFER_COMPLETED), usb::success},
        {"cancelled", usbCodeOfStatus(LIBUSB_TRANSFER_CANCELLED), usb::aborted},
        {"timed out", usbCodeOfStatus(LIBUSB_TRANSFER_TIMED_OUT), usb::timeout},
        {"stalled", usbCodeOfStatus(LIBUSB_TRANSFER_STALL), usb::pipeStalled},
        {"too much data", usbCodeOfStatus(LIBUSB_TRANSFER_OVERFLOW), usb::overrun},
        {"unplugged in flight", usbCodeOfStatus(LIBUSB_TRANSFER_NO_DEVICE), usb::noDevice},
        {"failed on the wire", usbCodeOfStatus(LIBUSB_TRANSFER_ERROR), usb::generalError},
    };
    for (const Row& row : rows)
        EXPECT_EQ(row.got, row.expected) << row.name;
}

} // namespace
} // namespace tessary
