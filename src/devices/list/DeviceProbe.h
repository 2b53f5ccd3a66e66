#pragma once

#include "adb/server/ADBDevices.h"
#include "devices/list/DeviceTrouble.h"
#include "ios/Lockdown.h"
#include "phone/records/DeviceInfo.h"

#include <chrono>
#include <functional>
#include <optional>
#include <stop_token>

namespace tessary {

class DeviceServices;

/// What came of asking a device for its figures.
struct DeviceAnswer {
    enum class Outcome {
        answered, ///< with `figures`, and perhaps a hint in `trouble`; an Android phone without a
                  ///< storage is locked
        busy,     ///< something else uses it
        gone,     ///< it was unplugged
        failed,   ///< with `trouble`
    };
    Outcome outcome = Outcome::busy;
    LiveDeviceInfo figures{}; ///< of an iPhone only the battery
    std::optional<DeviceTrouble> trouble{};
    // Of an iPhone; no value for what it does not tell:
    std::optional<QString> deviceName{};
    std::optional<StorageInfo> storage{};
};

/// Asks for what a bus does not tell. Calls block, though not without end, and may come from any
/// thread.
class DeviceProbe {
public:
    virtual ~DeviceProbe() = default;

    /// Battery and storages. Never waits for whoever uses the device. Who asks to stop has no use
    /// for the answer.
    [[nodiscard]] virtual DeviceAnswer ask(const DeviceInfo& device,
                                           const std::stop_token& stop) = 0;
    /// Whether a program runs that is known to compete for phones.
    [[nodiscard]] virtual bool isConflictingAppRunning() = 0;
    /// The phones that adb reaches, or is refused by. `lookAgain`: something was plugged in.
    [[nodiscard]] virtual std::vector<ADBDevice> adbDevices(bool /*lookAgain*/,
                                                            const std::stop_token&) {
        return {};
    }
    /// From now on `changed` is called, on any thread, when adbDevices() has another answer; an
    /// empty one ends that.
    virtual void onADBChange(std::function<void()> /*changed*/) {}
};

/// Asks phones by way of their file systems, which order it with everything else that uses them.
class PhoneProbe : public DeviceProbe {
public:
    /// `services` must outlive it. A phone that answers, but never to the end, keeps others from it
    /// for `limit`.
    explicit PhoneProbe(DeviceServices& services,
                        std::chrono::milliseconds limit = std::chrono::minutes(1))
        : services_(services), limit_(limit) {}

    [[nodiscard]] DeviceAnswer ask(const DeviceInfo& device, const std::stop_token& stop) override;
    [[nodiscard]] bool isConflictingAppRunning() override;
    [[nodiscard]] std::vector<ADBDevice> adbDevices(bool lookAgain,
                                                    const std::stop_token& stop) override;
    void onADBChange(std::function<void()> changed) override;

private:
    DeviceServices& services_;
    const std::chrono::milliseconds limit_;
};

} // namespace tessary
