#pragma once

#include "phone/records/AppInfo.h"

#include <QJsonObject>
#include <QString>

#include <optional>

namespace tessary {

/// What a tab shows: a phone, and a folder of its files or of one app's documents. A value.
struct TabPlace {
    QString udid;               ///< of the phone
    std::optional<AppInfo> app; ///< of an iPhone; its photos are one
    QString path;               ///< empty: the phone's own page

    [[nodiscard]] QJsonObject toJson() const;
    /// No value where it names no phone. A path is never empty with an app.
    [[nodiscard]] static std::optional<TabPlace> fromJson(const QJsonObject& json);

    bool operator==(const TabPlace&) const = default;
};

} // namespace tessary
