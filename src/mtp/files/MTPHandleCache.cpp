#include "mtp/files/MTPHandleCache.h"

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
    const auto isInside = [&](const auto& entry) {
        const MTPObjectKey& other = entry.key();
        return other.device == key.device && other.storageID == key.storageID &&
               (other.path == key.path || other.path.startsWith(below));
    };
    const std::scoped_lock lock(mutex_);
    handles_.removeIf(isInside);
    folders_.removeIf(isInside);
}

void MTPHandleCache::dropFile(const MTPObjectKey& key) {
    const std::scoped_lock lock(mutex_);
    handles_.remove(key);
}

std::optional<MTPFolderContents> MTPHandleCache::takeFolder(const MTPObjectKey& key) {
    constexpr std::chrono::minutes lifetime(1);
    const std::scoped_lock lock(mutex_);
    const auto found = folders_.find(key);
    if (found == folders_.end())
        return std::nullopt;
    const Folder folder = std::move(*found);
    folders_.erase(found);
    if (std::chrono::steady_clock::now() - folder.storedAt > lifetime)
        return std::nullopt;
    return folder.contents;
}

void MTPHandleCache::storeFolder(const MTPObjectKey& key, MTPFolderContents contents) {
    constexpr qsizetype most = 8;
    const std::scoped_lock lock(mutex_);
    if (folders_.size() >= most)
        folders_.clear();
    folders_.insert(key, {std::move(contents), std::chrono::steady_clock::now()});
}

void MTPHandleCache::dropLocation(const QString& location) {
    const auto isThere = [&](const auto& entry) {
        const QString& device = entry.key().device;
        return device.endsWith(locationMark) || device.endsWith(locationMark + location);
    };
    const std::scoped_lock lock(mutex_);
    handles_.removeIf(isThere);
    folders_.removeIf(isThere);
}

} // namespace tessary
