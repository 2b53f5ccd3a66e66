#pragma once

#include <libudev.h>

#include <memory>
#include <mutex>

namespace tessary {

/// Owners of libudev's handles.
struct UdevRelease {
    void operator()(udev* handle) const {
        udev_unref(handle);
    }
    void operator()(udev_device* handle) const {
        udev_device_unref(handle);
    }
    void operator()(udev_enumerate* handle) const {
        udev_enumerate_unref(handle);
    }
    void operator()(udev_monitor* handle) const {
        udev_monitor_unref(handle);
    }
};

/// Held around every use of libudev: its handles share the seed of its hash tables, unguarded.
inline std::mutex& udevMutex() {
    static std::mutex mutex;
    return mutex;
}

using UdevPointer = std::unique_ptr<udev, UdevRelease>;
using UdevDevicePointer = std::unique_ptr<udev_device, UdevRelease>;
using UdevEnumeratePointer = std::unique_ptr<udev_enumerate, UdevRelease>;
using UdevMonitorPointer = std::unique_ptr<udev_monitor, UdevRelease>;

} // namespace tessary
