#pragma once

#include <QDateTime>
#include <QJsonValue>
#include <QString>
#include <QUuid>

#include <optional>

namespace tessary {

/// One bookmarked folder of a device. A value.
struct DeviceFavorite {
    QUuid id;
    QString deviceUDID;
    QString name;                       ///< what the user sees
    QString path;                       ///< in the device's namespace
    std::optional<QString> appBundleId; ///< the iOS app whose container holds the folder
    std::optional<QString> appName;
    QDateTime createdAt;

    bool operator==(const DeviceFavorite&) const = default;
};

/// A JSON object with the fields' names as keys; the date as seconds since 2001, the id in upper
/// case, absent texts left out.
[[nodiscard]] QJsonValue toJson(const DeviceFavorite& favorite);
/// No value when a field is missing or of another type.
[[nodiscard]] std::optional<DeviceFavorite> deviceFavoriteFromJson(const QJsonValue& json);

} // namespace tessary
