#include "views/tabs/TabPlace.h"

namespace tessary {

namespace {

using Field = QLatin1StringView;

} // namespace

QJsonObject TabPlace::toJson() const {
    QJsonObject json{{Field("device"), udid}, {Field("path"), path}};
    if (app) {
        json.insert(Field("app"), app->bundleIdentifier);
        json.insert(Field("appName"), app->displayName);
    }
    return json;
}

std::optional<TabPlace> TabPlace::fromJson(const QJsonObject& json) {
    TabPlace place{json.value(Field("device")).toString(), std::nullopt,
                   json.value(Field("path")).toString()};
    if (place.udid.isEmpty() || !(place.path.isEmpty() || place.path.startsWith(u'/')))
        return std::nullopt;
    if (const QString id = json.value(Field("app")).toString();
        !id.isEmpty() && !place.path.isEmpty())
        place.app = AppInfo{id, json.value(Field("appName")).toString(id), true, false};
    return place;
}

} // namespace tessary
