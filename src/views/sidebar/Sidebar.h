#pragma once

#include "views/sidebar/DeviceListModel.h"
#include "views/sidebar/PlaceListModel.h"

#include <QHash>
#include <QSet>
#include <QWidget>

#include <functional>
#include <optional>

class QAction;
class QLabel;
class QListView;

namespace tessary {

class EntryDrop;
class ModeSwitch;
class PlaceList;

/// The left side of the window: the devices, and what leads into the chosen one: its favorites, the
/// usual folders and its storages.
class Sidebar : public QWidget {
    Q_OBJECT

public:
    /// What the user asks for.
    struct Callbacks {
        std::function<void(const DeviceFavorite&)> openFavorite;
        std::function<void(const QString& path)> openFolder;
        std::function<void()> openMedia; ///< of an iPhone
        std::function<void()> showApps;  ///< the same
        QAction* importPhotos = nullptr; ///< never null
        std::function<void(ProtocolMode)> useMode;
        std::function<void()> showWireless;
    };

    /// All must outlive it.
    Sidebar(DeviceListModel& devices, FavoritesManager& favorites, PhoneMounts& mounts,
            Callbacks callbacks);

    [[nodiscard]] QListView& deviceList() const {
        return *deviceList_;
    }
    /// Shows the places of this device, or none. `source` is what is being browsed of it.
    void showDevice(const std::optional<DeviceInfo>& device, const FavoriteSource& source);
    /// The folders of the device's main storage, where they are known: shortcuts to others are not
    /// shown. Without a value those that were known last hold on.
    void setKnownFolders(const std::optional<QSet<QString>>& names);
    /// What makes the places targets of drops. It must outlive the sidebar.
    void setDrops(const EntryDrop& drops);
    /// What is shown of the device.
    enum class Shown { itself, apps, folder };
    /// Marks the place that is shown; `path` is of the folder.
    void showPlace(Shown shown, const QString& path = {});

protected:
    void changeEvent(QEvent* event) override;

private:
    void fitDeviceList();
    void open(const Place& place);
    void showPlaces();
    void showDeviceMenu(const QPoint& where);
    void showFavoriteMenu(const QModelIndex& index, const QPoint& where);
    void showPlaceMenu(const Place& place, const QPoint& where);

    DeviceListModel& devices_;
    FavoritesManager& favorites_;
    PhoneMounts& mounts_;
    Callbacks callbacks_;
    std::optional<DeviceInfo> device_;
    FavoriteSource source_;
    Shown shown_ = Shown::itself;
    QString folder_;                             ///< that is shown
    QHash<QString, QSet<QString>> knownFolders_; ///< by DeviceInfo::udid
    QListView* deviceList_;
    QLabel* noDevices_;
    ModeSwitch* mode_;
    FavoriteListModel favoriteModel_;
    PlaceListModel shortcutModel_;
    PlaceListModel volumeModel_;
    PlaceList* favoriteList_;
    PlaceList* shortcutList_;
    PlaceList* volumeList_;
};

} // namespace tessary
