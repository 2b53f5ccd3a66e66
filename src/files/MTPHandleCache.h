#pragma once

#include <QHash>
#include <QString>

#include <cstdint>
#include <mutex>
#include <optional>

namespace tessary {

/// Where an object lies: two phones, or two storages of one, never share an entry.
struct MTPObjectKey {
    QString device; ///< as MTPHandleCache::deviceKey gives it
    std::uint32_t storageID = 0;
    QString path; ///< storage-relative, without a "/" at its end

    bool operator==(const MTPObjectKey&) const = default;
};

[[nodiscard]] std::size_t qHash(const MTPObjectKey& key, std::size_t seed = 0);

/// Object handles by path. A handle is a hint: devices give others after a change or in a new
/// session, so whoever uses one checks that it still names the object. Thread-safe.
class MTPHandleCache {
public:
    [[nodiscard]] static QString deviceKey(const QString& udid, const QString& location);

    [[nodiscard]] std::optional<std::uint32_t> find(const MTPObjectKey& key) const;
    void store(const MTPObjectKey& key, std::uint32_t handle);
    /// Drops an object and everything below it.
    void drop(const MTPObjectKey& key);
    void dropDevice(const QString& device);
    /// Drops what is known of the device that was plugged in there, and of every device whose
    /// place is not known.
    void dropLocation(const QString& location);

private:
    mutable std::mutex mutex_;
    QHash<MTPObjectKey, std::uint32_t> handles_; ///< guarded by mutex_
};

} // namespace tessary
