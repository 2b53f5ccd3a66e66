#include "views/sidebar/PlaceListModel.h"

#include "app/texts/DisplayNames.h"
#include "app/texts/SharedWords.h"
#include "base/text/Printable.h"
#include "browser/listing/EntryMimeData.h"
#include "phone/records/AppInfo.h"
#include "views/common/Icons.h"
#include "views/common/PlainText.h"

#include <algorithm>
#include <array>

namespace tessary {

namespace {

constexpr QLatin1StringView rowFormat("application/x-tessary-favorite-row");

struct Shortcut {
    const char* title;
    const char* iconName;
    const char* folder;
};

constexpr std::array shortcuts{
    Shortcut{QT_TRANSLATE_NOOP("tessary::PlaceListModel", "Camera & Photos"), "camera-photo",
             "DCIM"},
    Shortcut{QT_TRANSLATE_NOOP("tessary::PlaceListModel", "Downloads"), "folder-download",
             "Download"},
    Shortcut{QT_TRANSLATE_NOOP("tessary::PlaceListModel", "Pictures"), "folder-pictures",
             "Pictures"},
    Shortcut{QT_TRANSLATE_NOOP("tessary::PlaceListModel", "Music"), "folder-music", "Music"},
    Shortcut{QT_TRANSLATE_NOOP("tessary::PlaceListModel", "Movies & Videos"), "folder-videos",
             "Movies"},
    Shortcut{QT_TRANSLATE_NOOP("tessary::PlaceListModel", "Documents"), "folder-documents",
             "Documents"},
};

constexpr QLatin1StringView mainStorage("/sdcard");

} // namespace

void PlaceListModel::setPlaces(std::vector<Place> places) {
    if (places == places_)
        return;
    beginResetModel();
    places_ = std::move(places);
    endResetModel();
}

const Place* PlaceListModel::placeAt(const QModelIndex& index) const {
    if (!index.isValid() || index.row() >= rowCount())
        return nullptr;
    return &places_[static_cast<std::size_t>(index.row())];
}

QModelIndex PlaceListModel::indexOf(Place::Target target, const QString& path) const {
    const auto found = std::ranges::find_if(
        places_, [&](const Place& place) { return place.target == target && place.path == path; });
    return found == places_.end() ? QModelIndex()
                                  : index(static_cast<int>(found - places_.begin()));
}

int PlaceListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(places_.size());
}

QVariant PlaceListModel::data(const QModelIndex& index, int role) const {
    const Place* place = placeAt(index);
    if (place == nullptr)
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return place->title;
    case Qt::DecorationRole:
        return lineIcon(place->iconName);
    case Qt::ToolTipRole:
        return plainToolTip(place->toolTip.isEmpty() ? printable(place->path) : place->toolTip);
    default:
        return {};
    }
}

FavoriteListModel::FavoriteListModel(FavoritesManager& manager) : manager_(manager) {
    connect(&manager, &FavoritesManager::favoritesChanged, this, [this] { reload(); });
}

void FavoriteListModel::showDevice(const QString& udid, const FavoriteSource& source) {
    udid_ = udid;
    source_ = source;
    reload();
}

void FavoriteListModel::reload() {
    favorites_ = manager_.favorites(udid_);
    std::vector<Place> places;
    for (const DeviceFavorite& favorite : favorites_) {
        Place place{QStringLiteral("folder-favorites"), printable(favorite.name), favorite.path,
                    printable(favorite.path)};
        if (favorite.appName)
            place.toolTip = printable(*favorite.appName) + QStringLiteral(": ") + place.toolTip;
        places.push_back(std::move(place));
    }
    setPlaces(std::move(places));
}

std::optional<DeviceFavorite> FavoriteListModel::favoriteAt(const QModelIndex& index) const {
    if (!index.isValid() || index.row() >= rowCount())
        return std::nullopt;
    return favorites_[static_cast<std::size_t>(index.row())];
}

bool FavoriteListModel::isOnShownConnection(const QModelIndex& index) const {
    const auto favorite = favoriteAt(index);
    return favorite && source_.files != nullptr && favorite->appBundleId == source_.appBundleId;
}

Qt::ItemFlags FavoriteListModel::flags(const QModelIndex& index) const {
    // Between the rows only.
    if (!index.isValid())
        return Qt::ItemIsDropEnabled;
    return PlaceListModel::flags(index) | Qt::ItemIsDragEnabled;
}

Qt::DropActions FavoriteListModel::supportedDropActions() const {
    return Qt::MoveAction | Qt::CopyAction | Qt::LinkAction;
}

QStringList FavoriteListModel::mimeTypes() const {
    return {QString(rowFormat), QString(EntryMimeData::format)};
}

QMimeData* FavoriteListModel::mimeData(const QModelIndexList& indexes) const {
    if (indexes.isEmpty())
        return nullptr;
    auto data = std::make_unique<QMimeData>();
    data->setData(QString(rowFormat), QByteArray::number(indexes.front().row()));
    return data.release();
}

bool FavoriteListModel::canDropMimeData(const QMimeData* data, Qt::DropAction, int, int,
                                        const QModelIndex&) const {
    if (udid_.isEmpty())
        return false;
    if (data->hasFormat(QString(rowFormat)))
        return true;
    const auto* entries = qobject_cast<const EntryMimeData*>(data);
    return entries != nullptr && source_.files != nullptr &&
           entries->identity() == source_.files->identity() && entries->hasFolder();
}

bool FavoriteListModel::dropMimeData(const QMimeData* data, Qt::DropAction action, int row,
                                     int column, const QModelIndex& parent) {
    if (!canDropMimeData(data, action, row, column, parent))
        return false;
    if (const auto* entries = qobject_cast<const EntryMimeData*>(data)) {
        for (const FileItem& item : entries->items())
            if (item.isDirectory)
                manager_.addFavorite(udid_, item.name, source_.files->canonicalPath(item.path),
                                     source_.appBundleId, source_.appName);
        return true;
    }
    const int from = data->data(QString(rowFormat)).toInt();
    manager_.moveFavorite(udid_, from, row < 0 ? rowCount() : row);
    // The row has moved already: the view must not remove it as the source of a move.
    return false;
}

std::vector<Place> shortcutsOf(const DeviceInfo& device) {
    if (device.platform != DevicePlatform::android || !device.isDataAccessible())
        return {};
    std::vector<Place> places;
    for (const Shortcut& shortcut : shortcuts)
        places.push_back(
            {QString::fromLatin1(shortcut.iconName),
             PlaceListModel::tr(shortcut.title),
             QStringLiteral("%1/%2").arg(mainStorage, QLatin1StringView(shortcut.folder)),
             {}});
    return places;
}

std::vector<Place> volumesOf(const DeviceInfo& device) {
    if (device.platform == DevicePlatform::iOS)
        return {{QStringLiteral("folder-pictures"),
                 placeDisplayName(mediaFolder().displayName),
                 {},
                 placeDisplayName(mediaFolder().displayName),
                 Place::Target::media},
                {QStringLiteral("view-list-icons"),
                 words::apps(),
                 {},
                 words::apps(),
                 Place::Target::apps}};
    std::vector<Place> places;
    for (std::size_t i = 0; i < device.volumes.size(); ++i) {
        const StorageVolume& volume = device.volumes[i];
        places.push_back(
            {volume.isSDCard ? QStringLiteral("media-flash") : QStringLiteral("drive-harddisk"),
             printable(volume.name.isEmpty() ? volume.id : placeDisplayName(volume.name)),
             i == 0 ? QString(mainStorage) : QStringLiteral("/storage/") + volume.id,
             freeSpaceText(volume)});
    }
    return places;
}

} // namespace tessary
