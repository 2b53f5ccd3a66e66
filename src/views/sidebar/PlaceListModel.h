#pragma once

#include "app/favorites/FavoritesManager.h"
#include "phone/PhoneFileSystem.h"
#include "phone/records/DeviceInfo.h"

#include <QAbstractListModel>

#include <memory>
#include <vector>

namespace tessary {

/// A folder that the sidebar leads to, or, of an iPhone, its apps or its photos.
struct Place {
    enum class Target { folder, media, apps };

    QString iconName;
    QString title;
    QString path; ///< empty for what is no folder
    QString toolTip;
    Target target = Target::folder;

    bool operator==(const Place&) const = default;
};

/// The places of one section of the sidebar.
class PlaceListModel : public QAbstractListModel {
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    void setPlaces(std::vector<Place> places);
    [[nodiscard]] const Place* placeAt(const QModelIndex& index) const;
    /// The row that leads there; invalid when none does.
    [[nodiscard]] QModelIndex indexOf(Place::Target target, const QString& path = {}) const;

    /// Whether the row is a folder of the connection that is browsed, as far as the model can tell.
    [[nodiscard]] virtual bool isOnShownConnection(const QModelIndex& index) const {
        const Place* place = placeAt(index);
        return place != nullptr && place->target == Place::Target::folder;
    }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    std::vector<Place> places_;
};

/// What is being browsed.
struct FavoriteSource {
    std::shared_ptr<PhoneFileSystem> files; ///< null for nothing
    std::optional<QString> appBundleId;
    std::optional<QString> appName;
};

/// The favorites of the chosen device: rows are dragged into another order, folders of the listing
/// dropped to add them.
class FavoriteListModel : public PlaceListModel {
public:
    /// `manager` must outlive it.
    explicit FavoriteListModel(FavoritesManager& manager);

    /// The device whose favorites are shown, and what is being browsed of it: that is where
    /// dropped folders come from.
    void showDevice(const QString& udid, const FavoriteSource& source);
    [[nodiscard]] std::optional<DeviceFavorite> favoriteAt(const QModelIndex& index) const;

    [[nodiscard]] bool isOnShownConnection(const QModelIndex& index) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    [[nodiscard]] Qt::DropActions supportedDropActions() const override;
    [[nodiscard]] QStringList mimeTypes() const override;
    [[nodiscard]] QMimeData* mimeData(const QModelIndexList& indexes) const override;
    [[nodiscard]] bool canDropMimeData(const QMimeData* data, Qt::DropAction action, int row,
                                       int column, const QModelIndex& parent) const override;
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override;

private:
    void reload();

    FavoritesManager& manager_;
    QString udid_;
    FavoriteSource source_;
    std::vector<DeviceFavorite> favorites_;
};

/// The usual folders of an Android phone.
[[nodiscard]] std::vector<Place> shortcutsOf(const DeviceInfo& device);
/// The storages of a phone that has more than none.
[[nodiscard]] std::vector<Place> volumesOf(const DeviceInfo& device);

} // namespace tessary
