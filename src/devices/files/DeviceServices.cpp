#include "devices/files/DeviceServices.h"

#include "adb/files/ADBFileSystem.h"
#include "ios/files/AFCFileSystem.h"
#include "ios/helper/IPhoneHelper.h"
#include "mtp/files/MTPFileSystem.h"

namespace tessary {

DeviceServices::DeviceServices(const Setup& setup)
    : adbWays_({.bus = setup.bus,
                .processes = setup.processes,
                .server = setup.adbServer,
                .adbPaths = setup.adbPaths,
                .changed = [this] { tellADBChange(); }}),
      competing_(setup.processes),
      files_(ways(setup)) {}

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

PhoneFileSystems::Ways DeviceServices::ways(const Setup& setup) {
    using Queue = std::shared_ptr<PhoneQueue>;
    PhoneFileSystems::Ways ways;
    ways.mtp = [&bus = setup.bus](const PhoneIdentity& phone, const Queue& queue) {
        return std::make_shared<MTPFileSystem>(bus, phone, queue);
    };
    ways.adb = [this](const PhoneIdentity& phone,
                      const Queue& queue) -> std::shared_ptr<PhoneFileSystem> {
        if (!adbWays_.canReach(phone))
            return nullptr;
        return std::make_shared<ADBFileSystem>(phone, queue, adbWays_.connectionTo(phone));
    };
    ways.app = [](const PhoneIdentity& phone, const AppInfo& app, const Queue& queue) {
        return std::make_shared<AFCFileSystem>(phone, app, queue);
    };
    ways.media = [](const PhoneIdentity& phone, const Queue& queue) {
        return std::make_shared<AFCFileSystem>(phone, std::nullopt, queue);
    };
    return ways;
}

} // namespace tessary
