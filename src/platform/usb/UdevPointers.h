#pragma once

#include "base/values/FreeWith.h"

#include <libudev.h>

#include <memory>
#include <mutex>

namespace tessary {

/// Held around every use of libudev: its handles share the seed of its hash tables, unguarded.
inline std::mutex& udevMutex() {
    static std::mutex mutex;
    return mutex;
}

// Owners of libudev's handles.
using UdevPointer = std::unique_ptr<udev, FreeWith<udev_unref>>;
using UdevDevicePointer = std::unique_ptr<udev_device, FreeWith<udev_device_unref>>;
using UdevMonitorPointer = std::unique_ptr<udev_monitor, FreeWith<udev_monitor_unref>>;

} // namespace tessary
