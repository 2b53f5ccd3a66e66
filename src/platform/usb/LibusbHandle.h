#pragma once

#include "base/local/FileHandle.h"
#include "platform/usb/USBCode.h"

#include <libusb-1.0/libusb.h>

#include <QByteArray>

#include <atomic>
#include <chrono>
#include <memory>
#include <stop_token>

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

    /// Called before each look for what is not aside: for a while the bus is left to that one.
    void beginWait() const;
    /// Handles events until `*completed` is not 0, or for `wait` at most; may return early. Any
    /// number of threads.
    void handleEvents(int* completed, std::chrono::microseconds wait) const;
    /// The same for what seldom comes: while others wait for theirs, they handle the events, so
    /// that what they wait for need not be handed over by this thread. A stop is heard at once.
    /// Of one thread at a time.
    void handleEventsAside(int* completed, std::chrono::microseconds wait,
                           const std::stop_token& stop) const;

private:
    LibusbHandle() = default;

    FileHandle descriptor_;
    libusb_context* context_ = nullptr;
    libusb_device_handle* handle_ = nullptr;
    mutable std::atomic<unsigned> waits_ = 0; ///< of those who are not aside, ever begun
    mutable unsigned waitsSeenAside_ = 0;     ///< only used aside
    mutable std::atomic<bool> isAsideAtBus_ = false;
};

} // namespace tessary
