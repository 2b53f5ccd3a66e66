#pragma once

#include "phone/records/FileItem.h"

#include <QHash>
#include <QString>

#include <chrono>
#include <functional>
#include <list>
#include <mutex>
#include <optional>
#include <vector>

namespace tessary {

/// Folder listings in memory, by a key of the caller's choice, for a bounded time. Above the count
/// limit the listing that was not used for longest goes. Thread-safe; each operation is atomic.
class DirectoryCache {
public:
    static constexpr std::size_t countLimit = 200; ///< entries

    using Clock = std::function<std::chrono::steady_clock::time_point()>;

    /// An entry that is older than `ttlSeconds` is gone. `clock` is empty for the steady clock.
    explicit DirectoryCache(double ttlSeconds, Clock clock = {});

    [[nodiscard]] std::optional<std::vector<FileItem>> get(const QString& key);
    /// Stores or replaces an entry, which counts as new.
    void set(const QString& key, std::vector<FileItem> items);
    void invalidate(const QString& key);
    /// Removes every entry whose key begins with `prefix`.
    void invalidateBelow(const QString& prefix);
    void clearAll();

private:
    struct CacheEntry {
        QString key;
        std::vector<FileItem> items;
        std::chrono::steady_clock::time_point timestamp;
    };
    using Entries = std::list<CacheEntry>;

    void remove(Entries::iterator entry);

    const std::chrono::duration<double> ttl_;
    const Clock clock_;
    std::mutex lock_; ///< guards all below
    Entries entries_; ///< used last comes first
    QHash<QString, Entries::iterator> byKey_;
};

} // namespace tessary
