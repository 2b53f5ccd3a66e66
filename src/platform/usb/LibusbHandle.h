#pragma once

#include "base/local/FileHandle.h"
#include "platform/usb/USBCode.h"

#include <libusb-1.0/libusb.h>

#include <QByteArray>

#include <chrono>
#include <memory>

namespace tessary {

/// An open device node with a libusb context of its own. Nothing is shared between two devices: a
/// thread that waits on one never handles, or waits for, the events of the other, and libusb
/// neither scans the buses nor starts a thread.
class LibusbHandle {
public:
    /// Opens a node such as "/dev/bus/usb/001/004". Null, and the reason in `code`, on failure:
    /// usb::notPermitted, usb::noDevice, usb::exclusiveAccess or another.
    [[nodiscard]] static std::unique_ptr<LibusbHandle> open(const QByteArray& node, USBCode& code);

    /// No transfer of this handle may be in flight any more, but for abandoned ones.
    ~LibusbHandle();
    LibusbHandle(const LibusbHandle&) = delete;
    LibusbHandle& operator=(const LibusbHandle&) = delete;

    [[nodiscard]] libusb_device_handle* get() const {
        return handle_;
    }

    /// Handles events until `*completed` is not 0 or `until` has passed. Any number of threads.
    void handleEvents(int* completed, std::chrono::steady_clock::time_point until) const;

private:
    LibusbHandle() = default;

    FileHandle descriptor_;
    libusb_context* context_ = nullptr;
    libusb_device_handle* handle_ = nullptr;
};

} // namespace tessary
