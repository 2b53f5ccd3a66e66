#pragma once

#include "mtp/objects/MTPFolderContents.h"

#include <QHash>
#include <QString>

#include <chrono>
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
    /// Drops an object that has nothing below it.
    void dropFile(const MTPObjectKey& key);

    /// What was stored of a folder within the last minute. It is dropped: whoever succeeds with
    /// what it goes by stores it again.
    [[nodiscard]] std::optional<MTPFolderContents> takeFolder(const MTPObjectKey& key);
    void storeFolder(const MTPObjectKey& key, MTPFolderContents contents);

    /// Drops what is known of the device that was plugged in there, and of every device whose
    /// place is not known.
    void dropLocation(const QString& location);

private:
    mutable std::mutex mutex_;
    QHash<MTPObjectKey, std::uint32_t> handles_; ///< guarded by mutex_
    struct Folder {
        MTPFolderContents contents;
        std::chrono::steady_clock::time_point storedAt;
    };
    QHash<MTPObjectKey, Folder> folders_; ///< guarded by mutex_
};

} // namespace tessary
