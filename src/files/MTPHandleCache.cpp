#include "files/MTPHandleCache.h"

#include <QHashFunctions>

namespace tessary {

namespace {

/// Bounds the memory that a run of many hours over huge trees may take.
constexpr qsizetype maxEntries = 100'000;

constexpr QLatin1Char locationMark('@');

} // namespace

std::size_t qHash(const MTPObjectKey& key, std::size_t seed) {
    return qHashMulti(seed, key.device, key.storageID, key.path);
}

QString MTPHandleCache::deviceKey(const QString& udid, const QString& location) {
    return udid + locationMark + location;
}

std::optional<std::uint32_t> MTPHandleCache::find(const MTPObjectKey& key) const {
    const std::scoped_lock lock(mutex_);
    const auto found = handles_.constFind(key);
    if (found == handles_.constEnd())
        return std::nullopt;
    return *found;
}

void MTPHandleCache::store(const MTPObjectKey& key, std::uint32_t handle) {
    const std::scoped_lock lock(mutex_);
    if (handles_.size() >= maxEntries)
        handles_.clear();
    handles_.insert(key, handle);
}

void MTPHandleCache::drop(const MTPObjectKey& key) {
    const QString below = key.path + QLatin1Char('/');
    const std::scoped_lock lock(mutex_);
    handles_.removeIf([&](const auto& entry) {
        const MTPObjectKey& other = entry.key();
        return other.device == key.device && other.storageID == key.storageID &&
               (other.path == key.path || other.path.startsWith(below));
    });
}

void MTPHandleCache::dropDevice(const QString& device) {
    const std::scoped_lock lock(mutex_);
    handles_.removeIf([&](const auto& entry) { return entry.key().device == device; });
}

void MTPHandleCache::dropLocation(const QString& location) {
    const std::scoped_lock lock(mutex_);
    handles_.removeIf([&](const auto& entry) {
        const QString& device = entry.key().device;
        return device.endsWith(locationMark) || device.endsWith(locationMark + location);
    });
}

} // namespace tessary
