#pragma once

#include "adb/ways/ADBWays.h"
#include "devices/files/CompetingPrograms.h"
#include "devices/files/PhoneFileSystems.h"
#include "platform/process/ProcessRunner.h"
#include "platform/usb/USBBus.h"

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

namespace tessary {

/// Everything that reaches the phones of this machine: made once by a program, and handed to
/// whoever needs it. Thread-safe.
class DeviceServices {
public:
    /// What it works with; all outlives it.
    struct Setup {
        USBBus& bus;
        ProcessRunner& processes;
        /// Where the adb server of this machine, or of virtual phones, listens.
        ADBServerAddress adbServer = ADBServerAddress::of();
        /// Where the adb tool is looked for, instead of the usual places.
        std::optional<QStringList> adbPaths{};
    };

    explicit DeviceServices(const Setup& setup);

    [[nodiscard]] PhoneFileSystems& files() {
        return files_;
    }
    [[nodiscard]] CompetingPrograms& competingPrograms() {
        return competing_;
    }
    /// The apps of an iPhone that share files, by name. Blocking; fails as askIPhoneApps() does.
    [[nodiscard]] std::vector<AppInfo> apps(const DeviceInfo& device, const std::stop_token& stop);
    /// The ways to phones with USB debugging on.
    [[nodiscard]] ADBWays& adbWays() {
        return adbWays_;
    }
    /// From now on `changed`, which must not call back, is called on any thread when
    /// adbWays().devices() has another answer. In place of what was given before; empty for none.
    void onADBChange(std::function<void()> changed);

private:
    void tellADBChange();

    std::mutex mutex_;
    std::function<void()> adbChanged_; ///< guarded by mutex_; may be empty
    ADBWays adbWays_;
    CompetingPrograms competing_;
    PhoneFileSystems files_;
};

} // namespace tessary
