#include "mtp/files/MTPStatus.h"

#include "base/log/DiagnosticsLogger.h"
#include "mtp/files/MTPFileItems.h"
#include "mtp/objects/MTPFailures.h"

#include <utility>

namespace tessary {

StorageVolume MTPStatus::volume(const QString& id) const {
    const std::scoped_lock lock(mutex_);
    return volumes_.value(id);
}

LiveDeviceInfo MTPStatus::read(MTPConnection& phone, const std::stop_token& stop) {
    LiveDeviceInfo info;
    try {
        phone.inSession(stop, {}, [&](MTPTree& tree) { info.volumes = readVolumes(tree); });
    } catch (const Error& error) {
        if (endsEverything(error))
            throw;
        DiagnosticsLogger::shared().mtp.standard("Storages cannot be read: %s", {error.logText()});
    }
    // A phone that does not answer this one question is as good as any other.
    try {
        if (std::exchange(attachment_, phone.attachment()) != phone.attachment())
            hasBattery_ = true;
        if (hasBattery_)
            phone.inSession(stop, {}, [&](MTPTree& tree) { info.battery = readBattery(tree); });
    } catch (const Error& error) {
        hasBattery_ = false;
        DiagnosticsLogger::shared().mtp.standard("The battery cannot be read: %s",
                                                 {error.logText()});
    }
    return info;
}

std::vector<StorageVolume> MTPStatus::readVolumes(MTPTree& tree) {
    std::vector<StorageVolume> read;
    for (const std::uint32_t id : tree.storageIDs())
        try {
            read.push_back(volumeOf(tree.client().getStorageInfo(id)));
        } catch (const MTPFailure& failure) {
            if (endsSession(failure))
                throw;
        }
    const std::scoped_lock lock(mutex_);
    volumes_.clear(); // a card may have gone, and another one have its number
    for (const StorageVolume& volume : read)
        volumes_.insert(volume.id, volume);
    return read;
}

std::optional<int> MTPStatus::readBattery(MTPTree& tree) {
    constexpr int fullBattery = 100;
    const auto battery = tree.client().getBatteryLevel();
    hasBattery_ = battery && *battery <= fullBattery;
    return hasBattery_ ? battery : std::nullopt;
}

} // namespace tessary
