#include "browser/listing/DirectoryCache.h"

#include <utility>

namespace tessary {

DirectoryCache::DirectoryCache(double ttlSeconds, Clock clock)
    : ttl_(ttlSeconds), clock_(clock ? std::move(clock) : std::chrono::steady_clock::now) {}

std::optional<std::vector<FileItem>> DirectoryCache::get(const QString& key) {
    const std::scoped_lock lock(lock_);
    const auto found = byKey_.constFind(key);
    if (found == byKey_.constEnd())
        return std::nullopt;
    const Entries::iterator entry = *found;
    if (ttl_ < clock_() - entry->timestamp) {
        remove(entry);
        return std::nullopt;
    }
    entries_.splice(entries_.begin(), entries_, entry);
    return entry->items;
}

void DirectoryCache::set(const QString& key, std::vector<FileItem> items) {
    const std::scoped_lock lock(lock_);
    if (const auto known = byKey_.constFind(key); known != byKey_.constEnd())
        remove(*known);
    entries_.push_front({key, std::move(items), clock_()});
    byKey_.insert(key, entries_.begin());
    if (entries_.size() > countLimit)
        remove(std::prev(entries_.end()));
}

void DirectoryCache::invalidate(const QString& key) {
    const std::scoped_lock lock(lock_);
    if (const auto known = byKey_.constFind(key); known != byKey_.constEnd())
        remove(*known);
}

void DirectoryCache::invalidateBelow(const QString& prefix) {
    const std::scoped_lock lock(lock_);
    for (auto entry = entries_.begin(); entry != entries_.end();) {
        const auto next = std::next(entry);
        if (entry->key.startsWith(prefix))
            remove(entry);
        entry = next;
    }
}

void DirectoryCache::clearAll() {
    const std::scoped_lock lock(lock_);
    entries_.clear();
    byKey_.clear();
}

void DirectoryCache::remove(Entries::iterator entry) {
    byKey_.remove(entry->key);
    entries_.erase(entry);
}

} // namespace tessary
