#include "platform/usb/LibusbHandle.h"

#include "platform/usb/LibusbCodes.h"

#include <fcntl.h>
#include <sys/time.h>

#include <algorithm>
#include <cerrno>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>

namespace tessary {

using namespace std::chrono;

namespace {

USBCode codeOfErrno(int error) {
    switch (error) {
    case EACCES:
    case EPERM:
        return usb::notPermitted;
    case ENOENT:
    case ENODEV:
    case ENXIO:
        return usb::noDevice;
    case EBUSY:
        return usb::exclusiveAccess;
    case ENOMEM:
        return usb::noMemory;
    default:
        return usb::generalError;
    }
}

/// Without this option each context would list all devices and start a hot-plug thread.
void disableDiscovery() {
    [[maybe_unused]] static const int once =
        libusb_set_option(nullptr, LIBUSB_OPTION_NO_DEVICE_DISCOVERY);
}

void handleEventsOnce(libusb_context* context, int* completed, microseconds wait) {
    timeval limit{};
    limit.tv_sec = static_cast<time_t>(wait / 1s);
    limit.tv_usec = static_cast<suseconds_t>((wait % 1s).count());
    const int error = libusb_handle_events_timeout_completed(context, &limit, completed);
    // Not to spin on an error that stays.
    if (error != LIBUSB_SUCCESS && error != LIBUSB_ERROR_INTERRUPTED)
        std::this_thread::sleep_for(std::min(wait, microseconds(10ms)));
}

} // namespace

std::unique_ptr<LibusbHandle> LibusbHandle::open(const QByteArray& node, USBCode& code) {
    std::unique_ptr<LibusbHandle> opened(new LibusbHandle);
    opened->descriptor_ = FileHandle(::open(node.constData(), O_RDWR | O_CLOEXEC));
    if (!opened->descriptor_.isOpen()) {
        code = codeOfErrno(errno);
        return nullptr;
    }
    disableDiscovery();
    int error = libusb_init(&opened->context_);
    if (error == LIBUSB_SUCCESS)
        error =
            libusb_wrap_sys_device(opened->context_, opened->descriptor_.get(), &opened->handle_);
    code = usbCodeOfError(error);
    return code == usb::success ? std::move(opened) : nullptr;
}

LibusbHandle::~LibusbHandle() {
    if (handle_)
        libusb_close(handle_);
    if (context_)
        libusb_exit(context_);
}

void LibusbHandle::beginWait() const {
    waits_.fetch_add(1);
}

void LibusbHandle::handleEvents(int* completed, microseconds wait) const {
    beginWait();
    if (isAsideAtBus_.load())
        libusb_interrupt_event_handler(context_);
    handleEventsOnce(context_, completed, wait);
}

void LibusbHandle::handleEventsAside(int* completed, microseconds wait,
                                     const std::stop_token& stop) const {
    const unsigned waits = waits_.load();
    if (std::exchange(waitsSeenAside_, waits) != waits) {
        std::mutex mutex;
        std::unique_lock lock(mutex);
        std::condition_variable_any().wait_for(lock, stop, wait, [] { return false; });
        return;
    }
    isAsideAtBus_.store(true);
    const std::stop_callback wake(stop, [this] { libusb_interrupt_event_handler(context_); });
    // Whoever began to wait before that did not see it.
    if (waits_.load() == waits)
        handleEventsOnce(context_, completed, wait);
    isAsideAtBus_.store(false);
}

} // namespace tessary
