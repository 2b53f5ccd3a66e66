#pragma once

#include "app/favorites/DeviceFavorite.h"
#include "platform/settings/StoredList.h"

#include <QObject>

#include <memory>
#include <set>
#include <vector>

namespace tessary {

/// The bookmarked folders of all devices, in one order that the user makes. Every change is stored
/// at once. Lives on the main thread.
class FavoritesManager : public QObject {
    Q_OBJECT

public:
    static constexpr QLatin1StringView settingsKey{"Tessary_DeviceFavorites"};

    enum class AddFavoriteResult { added, duplicate };

    /// Reads the stored list; it is empty when what is stored is no list of favorites.
    explicit FavoritesManager(std::shared_ptr<SettingsStore> store);

    [[nodiscard]] const std::vector<DeviceFavorite>& favorites() const {
        return favorites_;
    }
    /// Those of one device, in the order of the list.
    [[nodiscard]] std::vector<DeviceFavorite> favorites(const QString& deviceUDID) const;

    /// The same path in the device's storage and in an app are two folders.
    [[nodiscard]] bool isFavorite(const QString& deviceUDID, const QString& path,
                                  const std::optional<QString>& appBundleId) const;

    AddFavoriteResult addFavorite(const QString& deviceUDID, const QString& name,
                                  const QString& path,
                                  const std::optional<QString>& appBundleId = std::nullopt,
                                  const std::optional<QString>& appName = std::nullopt);
    void removeFavorite(const QUuid& id);
    void removeFavorite(const QString& deviceUDID, const QString& path,
                        const std::optional<QString>& appBundleId);
    /// Adds the folder, or removes it and returns nothing.
    std::optional<AddFavoriteResult>
    toggleFavorite(const QString& deviceUDID, const QString& name, const QString& path,
                   const std::optional<QString>& appBundleId = std::nullopt,
                   const std::optional<QString>& appName = std::nullopt);

    /// Moves favorites of one device in front of the one at `toOffset`, or to the end. Offsets
    /// count within that device's favorites, before anything has moved; those that are out of range
    /// are left out.
    void moveFavorites(const QString& deviceUDID, const std::set<int>& fromOffsets, int toOffset);

    /// Removes what stands at `path` or below it, after that folder has gone.
    void removeFavorites(const QString& path, const QString& deviceUDID,
                         const std::optional<QString>& appBundleId);

Q_SIGNALS:
    void favoritesChanged();

private:
    void loadFavorites();
    void saveFavorites();
    template <typename Condition>
    void removeWhere(Condition condition);

    const std::shared_ptr<SettingsStore> store_;
    StoredList stored_;
    std::vector<DeviceFavorite> favorites_;
};

} // namespace tessary
