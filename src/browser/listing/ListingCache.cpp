#include "browser/listing/ListingCache.h"

#include "base/text/PathNames.h"

#include <algorithm>

namespace tessary {

namespace {

/// Everything that is shown from memory is read anew behind it: this only bounds how old a glimpse
/// may be.
constexpr std::chrono::minutes longestKept{10};

/// A folder of more entries would hold up the main thread when it is shown from memory.
constexpr std::size_t maxEntries = 10'000;

QString keyOf(const QString& identity, const QString& folder) {
    return identity + QChar::Null + folder;
}

/// What a key below a folder begins with. No name holds a "/".
QString prefixBelow(const QString& identity, const QString& folder) {
    return keyOf(identity, folder.endsWith(QLatin1Char('/')) ? folder : folder + QLatin1Char('/'));
}

} // namespace

void ListingCache::open(const QString& identity, const QString& deviceId) {
    deviceOf_.insert(identity, deviceId);
}

std::optional<std::vector<FileItem>> ListingCache::recall(const QString& identity,
                                                          const QString& folder) {
    const Glimpse* known = cache_.object(keyOf(identity, folder));
    if (known == nullptr || std::chrono::steady_clock::now() - known->since > longestKept)
        return std::nullopt;
    return known->items;
}

void ListingCache::removeBelow(const QString& prefix) {
    for (const QString& key : cache_.keys())
        if (key.startsWith(prefix))
            cache_.remove(key);
}

void ListingCache::remember(const QString& identity, const QString& folder,
                            const std::vector<FileItem>& items, Moment begun) {
    if (begun != changes_)
        return;
    const auto before = recall(identity, folder).value_or(std::vector<FileItem>());
    QHash<QString, const FileItem*> current;
    if (!before.empty())
        for (const FileItem& item : items)
            current.insert(item.path, &item);
    for (const FileItem& old : before) {
        const FileItem* item = current.value(old.path);
        if (!old.isDirectory || (item && *item == old))
            continue;
        cache_.remove(keyOf(identity, old.path));
        if (!item || !item->isDirectory)
            removeBelow(prefixBelow(identity, old.path));
    }
    if (items.size() <= maxEntries)
        cache_.insert(keyOf(identity, folder),
                      new Glimpse{items, std::chrono::steady_clock::now()});
    else
        cache_.remove(keyOf(identity, folder));
}

void ListingCache::entryChanged(const QString& identity, const QString& path) {
    ++changes_;
    const QString folder = parentPath(path);
    for (const QString& changed : {path, folder, parentPath(folder)})
        cache_.remove(keyOf(identity, changed));
    removeBelow(prefixBelow(identity, path));
}

void ListingCache::forgetFolder(const QString& identity, const QString& folder) {
    ++changes_;
    cache_.remove(keyOf(identity, folder));
    removeBelow(prefixBelow(identity, folder));
}

void ListingCache::forget(const QString& identity) {
    ++changes_;
    removeBelow(keyOf(identity, {}));
}

void ListingCache::keepOnly(const std::vector<DeviceInfo>& attached) {
    for (auto known = deviceOf_.begin(); known != deviceOf_.end();) {
        const bool isAttached =
            std::any_of(attached.begin(), attached.end(),
                        [&](const DeviceInfo& device) { return device.id() == *known; });
        if (isAttached) {
            ++known;
            continue;
        }
        ++changes_;
        removeBelow(keyOf(known.key(), {}));
        known = deviceOf_.erase(known);
    }
}

void ListingCache::forgetAll() {
    ++changes_;
    cache_.clear();
}

} // namespace tessary
