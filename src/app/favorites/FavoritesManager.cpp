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

void FavoritesManager::addFavorite(const QString& deviceUDID, const QString& name,
                                   const QString& path, const std::optional<QString>& appBundleId,
                                   const std::optional<QString>& appName) {
    if (isFavorite(deviceUDID, path, appBundleId))
        return;
    favorites_.push_back({QUuid::createUuid(), deviceUDID, name, path, appBundleId, appName,
                          QDateTime::currentDateTimeUtc()});
    saveFavorites();
}

template <typename Condition>
void FavoritesManager::removeWhere(Condition condition) {
    if (std::erase_if(favorites_, condition) > 0)
        saveFavorites();
}

void FavoritesManager::removeFavorite(const QUuid& id) {
    removeWhere([&](const DeviceFavorite& favorite) { return favorite.id == id; });
}

void FavoritesManager::toggleFavorite(const QString& deviceUDID, const QString& name,
                                      const QString& path,
                                      const std::optional<QString>& appBundleId,
                                      const std::optional<QString>& appName) {
    if (!isFavorite(deviceUDID, path, appBundleId))
        addFavorite(deviceUDID, name, path, appBundleId, appName);
    else
        removeWhere([&](const DeviceFavorite& favorite) {
            return favorite.deviceUDID == deviceUDID && favorite.path == path &&
                   favorite.appBundleId == appBundleId;
        });
}

void FavoritesManager::moveFavorite(const QString& deviceUDID, int from, int to) {
    std::vector<DeviceFavorite> order = favorites(deviceUDID);
    const int count = static_cast<int>(order.size());
    to = std::clamp(to, 0, count);
    if (from < 0 || from >= count || to == from || to == from + 1)
        return;
    const auto moved = order.begin() + from;
    if (from < to)
        std::rotate(moved, moved + 1, order.begin() + to);
    else
        std::rotate(order.begin() + to, moved, moved + 1);
    // They keep the places in the whole list that they have together.
    auto next = order.begin();
    for (DeviceFavorite& favorite : favorites_)
        if (favorite.deviceUDID == deviceUDID)
            favorite = *next++;
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
