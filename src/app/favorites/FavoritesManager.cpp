#include "app/favorites/FavoritesManager.h"

#include "base/text/PathNames.h"

#include <QJsonArray>

#include <algorithm>

namespace tessary {

namespace {

QJsonArray encodeFavorites(const std::vector<DeviceFavorite>& favorites) {
    QJsonArray list;
    for (const DeviceFavorite& favorite : favorites)
        list.append(toJson(favorite));
    return list;
}

/// No value when one of them makes no sense.
std::optional<std::vector<DeviceFavorite>> decodeFavorites(const QJsonValue& json) {
    if (!json.isArray())
        return std::nullopt;
    std::vector<DeviceFavorite> favorites;
    for (const QJsonValue& each : json.toArray()) {
        auto favorite = deviceFavoriteFromJson(each);
        if (!favorite)
            return std::nullopt;
        favorites.push_back(*std::move(favorite));
    }
    return favorites;
}

} // namespace

FavoritesManager::FavoritesManager(std::shared_ptr<SettingsStore> store)
    : store_(std::move(store)), stored_(*store_, settingsKey) {
    loadFavorites();
}

void FavoritesManager::loadFavorites() {
    auto loaded = decodeFavorites(stored_.value());
    stored_.setKnown(loaded ? std::optional(encodeFavorites(*loaded)) : std::nullopt);
    favorites_ = std::move(loaded).value_or(std::vector<DeviceFavorite>());
}

void FavoritesManager::saveFavorites() {
    stored_.store(encodeFavorites(favorites_));
    Q_EMIT favoritesChanged();
}

std::vector<DeviceFavorite> FavoritesManager::favorites(const QString& deviceUDID) const {
    std::vector<DeviceFavorite> found;
    std::ranges::copy_if(
        favorites_, std::back_inserter(found),
        [&](const DeviceFavorite& favorite) { return favorite.deviceUDID == deviceUDID; });
    return found;
}

bool FavoritesManager::isFavorite(const QString& deviceUDID, const QString& path,
                                  const std::optional<QString>& appBundleId) const {
    return std::ranges::any_of(favorites_, [&](const DeviceFavorite& favorite) {
        return favorite.deviceUDID == deviceUDID && favorite.path == path &&
               favorite.appBundleId == appBundleId;
    });
}

FavoritesManager::AddFavoriteResult
FavoritesManager::addFavorite(const QString& deviceUDID, const QString& name, const QString& path,
                              const std::optional<QString>& appBundleId,
                              const std::optional<QString>& appName) {
    if (isFavorite(deviceUDID, path, appBundleId))
        return AddFavoriteResult::duplicate;
    favorites_.push_back({QUuid::createUuid(), deviceUDID, name, path, appBundleId, appName,
                          QDateTime::currentDateTimeUtc()});
    saveFavorites();
    return AddFavoriteResult::added;
}

template <typename Condition>
void FavoritesManager::removeWhere(Condition condition) {
    if (std::erase_if(favorites_, condition) > 0)
        saveFavorites();
}

void FavoritesManager::removeFavorite(const QUuid& id) {
    removeWhere([&](const DeviceFavorite& favorite) { return favorite.id == id; });
}

void FavoritesManager::removeFavorite(const QString& deviceUDID, const QString& path,
                                      const std::optional<QString>& appBundleId) {
    removeWhere([&](const DeviceFavorite& favorite) {
        return favorite.deviceUDID == deviceUDID && favorite.path == path &&
               favorite.appBundleId == appBundleId;
    });
}

std::optional<FavoritesManager::AddFavoriteResult>
FavoritesManager::toggleFavorite(const QString& deviceUDID, const QString& name,
                                 const QString& path, const std::optional<QString>& appBundleId,
                                 const std::optional<QString>& appName) {
    if (!isFavorite(deviceUDID, path, appBundleId))
        return addFavorite(deviceUDID, name, path, appBundleId, appName);
    removeFavorite(deviceUDID, path, appBundleId);
    return std::nullopt;
}

void FavoritesManager::moveFavorites(const QString& deviceUDID, const std::set<int>& fromOffsets,
                                     int toOffset) {
    // The device's favorites keep the places in the whole list that they have together.
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < favorites_.size(); ++i)
        if (favorites_[i].deviceUDID == deviceUDID)
            places.push_back(i);
    const int count = static_cast<int>(places.size());
    std::vector<std::size_t> order;
    const auto take = [&](int from, int to, bool moved) {
        for (int offset = from; offset < to; ++offset)
            if (fromOffsets.contains(offset) == moved)
                order.push_back(places[static_cast<std::size_t>(offset)]);
    };
    const int target = std::clamp(toOffset, 0, count);
    take(0, target, false);
    take(0, count, true);
    take(target, count, false);
    if (order == places)
        return;
    const std::vector<DeviceFavorite> before = favorites_;
    for (std::size_t i = 0; i < places.size(); ++i)
        favorites_[places[i]] = before[order[i]];
    saveFavorites();
}

void FavoritesManager::removeFavorites(const QString& path, const QString& deviceUDID,
                                       const std::optional<QString>& appBundleId) {
    removeWhere([&](const DeviceFavorite& favorite) {
        return favorite.deviceUDID == deviceUDID && favorite.appBundleId == appBundleId &&
               isAtOrBelow(favorite.path, path);
    });
}

} // namespace tessary
