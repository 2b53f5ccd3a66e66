#include "platform/usb/LibusbHandle.h"

#include "platform/usb/LibusbCodes.h"

#include <fcntl.h>
#include <sys/time.h>

#include <algorithm>
#include <atomic>
#include <cerrno>

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

void LibusbHandle::handleEvents(int* completed, steady_clock::time_point until) const {
    do {
        const auto left = std::clamp(duration_cast<microseconds>(until - steady_clock::now()), 0us,
                                     microseconds(1s));
        timeval wait{};
        wait.tv_sec = static_cast<time_t>(left / 1s);
        wait.tv_usec = static_cast<suseconds_t>((left % 1s).count());
        const int error = libusb_handle_events_timeout_completed(context_, &wait, completed);
        if (error != LIBUSB_SUCCESS && error != LIBUSB_ERROR_INTERRUPTED)
            return;
    } while (!std::atomic_ref(*completed).load() && steady_clock::now() < until);
}

} // namespace tessary
