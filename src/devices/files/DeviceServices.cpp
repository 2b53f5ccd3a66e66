#include "devices/files/DeviceServices.h"

#include "ios/helper/IPhoneHelper.h"

namespace tessary {

DeviceServices::DeviceServices(const Setup& setup)
    : adbWays_({.bus = setup.bus,
                .processes = setup.processes,
                .server = setup.adbServer,
                .adbPaths = setup.adbPaths,
                .changed = [this] { tellADBChange(); }}),
      competing_(setup.processes),
      files_(setup.bus, adbWays_) {}

std::vector<AppInfo> DeviceServices::apps(const DeviceInfo& device, const std::stop_token& stop) {
    const PhoneQueue::Turn turn = files_.queueOf(device)->take(stop);
    return askIPhoneApps(device.udid, stop);
}

void DeviceServices::onADBChange(std::function<void()> changed) {
    const std::scoped_lock lock(mutex_);
    adbChanged_ = std::move(changed);
}

void DeviceServices::tellADBChange() {
    const std::scoped_lock lock(mutex_);
    if (adbChanged_)
        adbChanged_();
}

} // namespace tessary
