#include "app/favorites/DeviceFavorite.h"

#include <QJsonObject>
#include <QTimeZone>

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

} // namespace

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

std::optional<DeviceFavorite> deviceFavoriteFromJson(const QJsonValue& json) {
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

} // namespace tessary
