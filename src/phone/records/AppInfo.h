#pragma once

#include <QString>

namespace tessary {

/// One installed iOS app whose documents can be reached. A value.
struct AppInfo {
    QString bundleIdentifier;
    QString displayName;
    bool fileSharingEnabled = false;
    bool documentsInPlace = false;

    bool operator==(const AppInfo&) const = default;
};

/// An iPhone's photos and videos, which stand beside its apps: opened, kept and named like one.
[[nodiscard]] inline AppInfo mediaFolder() {
    return {QStringLiteral("com.apple.afc"), QStringLiteral("Photos & Videos"), true, false};
}
[[nodiscard]] inline bool isMediaFolder(const QString& bundleIdentifier) {
    return bundleIdentifier == QLatin1StringView("com.apple.afc");
}

} // namespace tessary
