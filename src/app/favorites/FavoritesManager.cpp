#include "app/favorites/FavoritesManager.h"

#include "base/text/PathNames.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QTimeZone>

#include <algorithm>
#include <cmath>

namespace tessary {

namespace {

using Key = QLatin1StringView;

constexpr Key idKey("id");
constexpr Key deviceKey("deviceUDID");
constexpr Key nameKey("name");
constexpr Key pathKey("path");
constexpr Key bundleKey("appBundleId");
constexpr Key appNameKey("appName");
constexpr Key dateKey("createdAt");

/// Beyond the year 9999 it is no date that somebody meant.
constexpr double latestDate = 253'402'300'800.0;

QDateTime epoch() {
    return QDateTime(QDate(2001, 1, 1), QTime(0, 0), QTimeZone::utc());
}

/// Absent, or a text; false when it is something else.
bool readOptional(const QJsonValue& json, std::optional<QString>& text) {
    if (json.isString())
        text = json.toString();
    return json.isString() || json.isUndefined() || json.isNull();
}

/// A JSON object with the fields' names as keys; the date as seconds since 2001, the id in upper
/// case, absent texts left out.
QJsonValue toJson(const DeviceFavorite& favorite) {
    QJsonObject json{
        {idKey, favorite.id.toString(QUuid::WithoutBraces).toUpper()},
        {deviceKey, favorite.deviceUDID},
        {nameKey, favorite.name},
        {pathKey, favorite.path},
        {dateKey, static_cast<double>(epoch().msecsTo(favorite.createdAt)) / 1000.0},
    };
    if (favorite.appBundleId)
        json.insert(bundleKey, *favorite.appBundleId);
    if (favorite.appName)
        json.insert(appNameKey, *favorite.appName);
    return json;
}

/// No value when a field is missing or of another type.
std::optional<DeviceFavorite> fromJson(const QJsonValue& json) {
    DeviceFavorite favorite;
    favorite.id = QUuid::fromString(json[idKey].toString());
    const double seconds = json[dateKey].toDouble();
    if (favorite.id.isNull() || !json[dateKey].isDouble() || std::abs(seconds) > latestDate)
        return std::nullopt;
    for (const Key key : {deviceKey, nameKey, pathKey})
        if (!json[key].isString())
            return std::nullopt;
    if (!readOptional(json[bundleKey], favorite.appBundleId) ||
        !readOptional(json[appNameKey], favorite.appName))
        return std::nullopt;
    favorite.deviceUDID = json[deviceKey].toString();
    favorite.name = json[nameKey].toString();
    favorite.path = json[pathKey].toString();
    favorite.createdAt = epoch().addMSecs(std::llround(seconds * 1000.0));
    return favorite;
}

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
        auto favorite = fromJson(each);
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
