#pragma once

#include "devices/list/DeviceManager.h"

#include <chrono>
#include <memory>
#include <optional>
#include <stop_token>
#include <vector>

namespace tessary {

/// What a device manager shows at one moment.
struct DeviceSnapshot {
    std::vector<DeviceInfo> devices;
    QHash<QString, DeviceTrouble> troubles; ///< by `DeviceInfo::id()`
    bool hasUSBConflict = false;
    bool isSettled = false; ///< no device is being asked any more

    bool operator==(const DeviceSnapshot&) const = default;
};

/// A device manager on the main thread, followed from another one: each change of it becomes a
/// snapshot in a queue. The main thread's event loop must run from construction to destruction.
class DeviceFollower {
public:
    enum class Mode {
        once,     ///< one refresh with storage
        listening ///< until it is destroyed
    };

    /// Not on the main thread. `sources` and `files` must outlive the follower and the background
    /// work that its manager starts.
    DeviceFollower(Mode mode, DeviceSources sources, DeviceServices& services,
                   const std::vector<USBIds>& alsoAccept);
    /// Waits until the manager is gone.
    ~DeviceFollower();
    DeviceFollower(const DeviceFollower&) = delete;
    DeviceFollower& operator=(const DeviceFollower&) = delete;

    /// The next snapshot. No value after a stop request, or when none has come within `limit`.
    [[nodiscard]] std::optional<DeviceSnapshot> next(const std::stop_token& stop,
                                                     std::chrono::milliseconds limit);

private:
    struct State;
    std::shared_ptr<State> state_; ///< shared with what is posted to the main thread
};

} // namespace tessary
