#pragma once

#include "mtp/files/MTPConnection.h"
#include "phone/PhoneFileSystem.h"

#include <mutex>

namespace tessary {

/// What a phone tells of its storages and its battery.
class MTPStatus {
public:
    /// Asks for it. The caller has the turn; throws what ends everything.
    [[nodiscard]] LiveDeviceInfo read(MTPConnection& phone, const std::stop_token& stop);
    /// The storages that tell of themselves; none while the phone is locked. The caller has the
    /// turn.
    std::vector<StorageVolume> readVolumes(MTPTree& tree);
    /// A storage by its id, as last read; nothing in it before. Any thread.
    [[nodiscard]] StorageVolume volume(const QString& id) const;

private:
    [[nodiscard]] std::optional<int> readBattery(MTPTree& tree);

    std::uint64_t attachment_ = 0; ///< that `hasBattery_` is about
    bool hasBattery_ = true;

    mutable std::mutex mutex_;
    QHash<QString, StorageVolume> volumes_; ///< by id; guarded by mutex_
};

} // namespace tessary
