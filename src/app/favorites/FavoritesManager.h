#pragma once

#include "platform/settings/StoredList.h"

#include <QDateTime>
#include <QObject>
#include <QUuid>

#include <memory>
#include <optional>
#include <vector>

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

/// The bookmarked folders of all devices, in one order that the user makes. Every change is stored
/// at once. Lives on the main thread.
class FavoritesManager : public QObject {
    Q_OBJECT

public:
    static constexpr QLatin1StringView settingsKey{"Tessary_DeviceFavorites"};

    /// Reads the stored list; it is empty when what is stored is no list of favorites.
    explicit FavoritesManager(std::shared_ptr<SettingsStore> store);

    /// Those of one device, in the order of the list.
    [[nodiscard]] std::vector<DeviceFavorite> favorites(const QString& deviceUDID) const;

    /// The same path in the device's storage and in an app are two folders.
    [[nodiscard]] bool isFavorite(const QString& deviceUDID, const QString& path,
                                  const std::optional<QString>& appBundleId) const;

    /// Adds the folder unless it is one.
    void addFavorite(const QString& deviceUDID, const QString& name, const QString& path,
                     const std::optional<QString>& appBundleId = std::nullopt,
                     const std::optional<QString>& appName = std::nullopt);
    void removeFavorite(const QUuid& id);
    /// Adds the folder, or removes it.
    void toggleFavorite(const QString& deviceUDID, const QString& name, const QString& path,
                        const std::optional<QString>& appBundleId = std::nullopt,
                        const std::optional<QString>& appName = std::nullopt);

    /// Moves a favorite of one device in front of the one at `to`, or to the end. Both count within
    /// that device's favorites, before anything has moved; one that is not there stays away.
    void moveFavorite(const QString& deviceUDID, int from, int to);

    /// Removes what stands at `path` or below it, after that folder has gone.
    void removeFavorites(const QString& path, const QString& deviceUDID,
                         const std::optional<QString>& appBundleId);

Q_SIGNALS:
    void favoritesChanged();

private:
    void saveFavorites();
    template <typename Condition>
    void removeWhere(Condition condition);

    const std::shared_ptr<SettingsStore> store_;
    StoredList stored_;
    std::vector<DeviceFavorite> favorites_;
};

} // namespace tessary
