#include "views/sidebar/Sidebar.h"

#include "app/LanguageManager.h"
#include "app/texts/SharedWords.h"
#include "base/text/PathNames.h"
#include "phone/records/AppInfo.h"
#include "views/common/Icons.h"
#include "views/common/Layouts.h"
#include "views/sidebar/DeviceDelegate.h"
#include "views/sidebar/ModeSwitch.h"
#include "views/sidebar/PlaceList.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QMenu>
#include <QScrollArea>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace tessary {

namespace {

constexpr int maxShownDevices = 4; ///< more of them scroll

QLayout* inRow(QToolButton* button, const char* objectName) {
    button->setObjectName(QString::fromLatin1(objectName));
    button->setIconSize({18, 18});
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setAutoRaise(true);
    auto* row = new QHBoxLayout;
    row->setContentsMargins(10, 4, 10, 0);
    row->addWidget(button, 0, Qt::AlignLeft);
    return row;
}

} // namespace

Sidebar::Sidebar(DeviceListModel& devices, FavoritesManager& favorites, PhoneMounts& mounts,
                 Callbacks callbacks)
    : devices_(devices),
      favorites_(favorites),
      mounts_(mounts),
      callbacks_(std::move(callbacks)),
      deviceList_(new QListView),
      noDevices_(makeNote()),
      mode_(new ModeSwitch(callbacks_.useMode)),
      favoriteModel_(favorites),
      favoriteList_(new PlaceList([] { return tr("Favorites"); }, favoriteModel_,
                                  [] { return tr("Drop a folder here to keep it at hand."); })),
      shortcutList_(new PlaceList([] { return tr("Quick Shortcuts"); }, shortcutModel_)),
      volumeList_(new PlaceList([] { return tr("Storage Volumes"); }, volumeModel_)) {
    deviceList_->setObjectName(QStringLiteral("deviceList"));
    keepTranslated(this, [this] { deviceList_->setAccessibleName(tr("Connected Devices")); });
    deviceList_->setModel(&devices);
    deviceList_->setItemDelegate(new DeviceDelegate(deviceList_));
    deviceList_->setFrameShape(QFrame::NoFrame);
    deviceList_->setMouseTracking(true);
    deviceList_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    deviceList_->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    deviceList_->viewport()->setBackgroundRole(QPalette::AlternateBase);
    for (auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(&devices, signal, this, [this] { fitDeviceList(); });

    noDevices_->setObjectName(QStringLiteral("noDevices"));
    noDevices_->setContentsMargins(16, 2, 12, 4);
    keepTranslated(noDevices_, [this] {
        noDevices_->setText(tr("No Devices") + QLatin1Char('\n') +
                            tr("Connect an iOS or Android device via USB"));
    });

    favoriteList_->view().setObjectName(QStringLiteral("favoriteList"));
    QListView& favoriteView = favoriteList_->view();
    favoriteView.setDragDropMode(QAbstractItemView::DragDrop);
    favoriteView.setDefaultDropAction(Qt::MoveAction);
    connect(favoriteList_, &PlaceList::chosen, this, [this](const QModelIndex& index) {
        if (const auto favorite = favoriteModel_.favoriteAt(index))
            callbacks_.openFavorite(*favorite);
    });
    connect(favoriteList_, &PlaceList::menuRequested, this, &Sidebar::showFavoriteMenu);
    shortcutList_->view().setObjectName(QStringLiteral("shortcutList"));
    volumeList_->view().setObjectName(QStringLiteral("volumeList"));
    for (auto [list, model] :
         {std::pair{shortcutList_, &shortcutModel_}, std::pair{volumeList_, &volumeModel_}}) {
        connect(list, &PlaceList::chosen, this, [this, model = model](const QModelIndex& index) {
            if (const Place* place = model->placeAt(index))
                open(*place);
        });
        connect(list, &PlaceList::menuRequested, this,
                [this, model = model](const QModelIndex& index, const QPoint& where) {
                    if (const Place* place = model->placeAt(index))
                        showPlaceMenu(*place, where);
                });
    }
    deviceList_->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(deviceList_, &QWidget::customContextMenuRequested, this, &Sidebar::showDeviceMenu);
    auto* wireless = new QToolButton;
    wireless->setIcon(lineIcon(QStringLiteral("network-wireless")));
    keepTranslated(wireless, [wireless] { wireless->setText(tr("Wireless Devices…")); });
    connect(wireless, &QToolButton::clicked, this, callbacks_.showWireless);
    auto* import = new QToolButton;
    import->setDefaultAction(callbacks_.importPhotos);

    auto* content = new QWidget;
    auto* column = makeColumn(*content);
    column->setContentsMargins(0, 0, 0, 8);
    column->addWidget(makeSectionHeading([] { return tr("Connected Devices"); }));
    column->addWidget(deviceList_);
    column->addWidget(noDevices_);
    column->addWidget(mode_);
    for (PlaceList* list : {favoriteList_, shortcutList_, volumeList_})
        column->addWidget(list);
    column->addStretch(1);
    column->addLayout(inRow(import, "importButton"));
    column->addLayout(inRow(wireless, "wirelessButton"));
    auto* scroll = new QScrollArea;
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setWidget(content);
    for (QWidget* ground : {static_cast<QWidget*>(this), content, scroll->viewport()}) {
        ground->setAutoFillBackground(true);
        ground->setBackgroundRole(QPalette::AlternateBase);
    }
    makeColumn(*this)->addWidget(scroll);
    setMinimumWidth(200);
    connect(&LanguageManager::shared(), &LanguageManager::languageChanged, this,
            &Sidebar::showPlaces);
    fitDeviceList();
    showDevice(std::nullopt, {});
}

void Sidebar::showDeviceMenu(const QPoint& where) {
    const DeviceInfo* const chosen = devices_.deviceAt(deviceList_->indexAt(where));
    if (chosen == nullptr)
        return;
    const DeviceInfo device = *chosen; // it may go while the menu is open
    QMenu menu(this);
    QAction* open = menu.addAction(icon("document-open-folder"), words::openInFileManager(),
                                   [this, &device] { mounts_.open(device, {}, {}); });
    open->setEnabled(device.isDataAccessible());
    if (mounts_.isOpen(device.udid))
        menu.addAction(icon("process-stop"), tr("Remove from File Manager"),
                       [this, &device] { mounts_.close(device.udid); });
    menu.exec(deviceList_->viewport()->mapToGlobal(where));
}

void Sidebar::showFavoriteMenu(const QModelIndex& index, const QPoint& where) {
    const auto favorite = favoriteModel_.favoriteAt(index);
    if (!favorite || !device_)
        return;
    QMenu menu(this);
    menu.addAction(icon("document-open-folder"), words::openInFileManager(),
                   [this, device = *device_, favorite = *favorite] {
                       std::optional<AppInfo> app;
                       if (favorite.appBundleId)
                           app = {*favorite.appBundleId,
                                  favorite.appName.value_or(*favorite.appBundleId), true, false};
                       mounts_.open(device, app, favorite.path);
                   });
    menu.addAction(icon("edit-delete-remove"), tr("Remove from Favorites"),
                   [this, id = favorite->id] { favorites_.removeFavorite(id); });
    menu.exec(where);
}

void Sidebar::showPlaceMenu(const Place& place, const QPoint& where) {
    if (!device_ || place.target == Place::Target::apps)
        return;
    QMenu menu(this);
    menu.addAction(
        icon("document-open-folder"), words::openInFileManager(),
        [this, device = *device_, path = place.path] { mounts_.open(device, {}, path); });
    menu.exec(where);
}

void Sidebar::open(const Place& place) {
    switch (place.target) {
    case Place::Target::folder:
        callbacks_.openFolder(QString(place.path)); // the places may change under it
        return;
    case Place::Target::media:
        callbacks_.openMedia();
        return;
    case Place::Target::apps:
        callbacks_.showApps();
        return;
    }
}

void Sidebar::fitDeviceList() {
    const int rows = devices_.rowCount();
    const int height = rows == 0 ? 0 : deviceList_->sizeHintForRow(0);
    deviceList_->setFixedHeight(std::min(rows, maxShownDevices) * height + (rows > 0 ? 2 : 0));
    deviceList_->setVisible(rows > 0);
    noDevices_->setVisible(rows == 0);
}

void Sidebar::showDevice(const std::optional<DeviceInfo>& device, const FavoriteSource& source) {
    device_ = device;
    source_ = source;
    showPlaces();
}

void Sidebar::showPlaces() {
    mode_->showDevice(device_);
    favoriteModel_.showDevice(device_ ? device_->udid : QString(), source_);
    favoriteList_->setVisible(device_.has_value());
    std::vector<Place> shortcuts = device_ ? shortcutsOf(*device_) : std::vector<Place>();
    const auto known = knownFolders_.constFind(device_ ? device_->udid : QString());
    if (known != knownFolders_.cend())
        std::erase_if(shortcuts, [known](const Place& place) {
            return !known->contains(lastComponent(place.path));
        });
    shortcutModel_.setPlaces(std::move(shortcuts));
    volumeModel_.setPlaces(device_ ? volumesOf(*device_) : std::vector<Place>());
    showPlace(shown_, folder_);
}

void Sidebar::setKnownFolders(const std::optional<QSet<QString>>& names) {
    if (!names || !device_ || !source_.files)
        return;
    const auto known = knownFolders_.constFind(device_->udid);
    if (known != knownFolders_.cend() && *known == *names)
        return;
    knownFolders_.insert(device_->udid, *names);
    showPlaces();
}

void Sidebar::setDrops(const EntryDrop& drops) {
    for (PlaceList* list : {favoriteList_, shortcutList_, volumeList_})
        list->setDrops(drops);
}

void Sidebar::showPlace(Shown shown, const QString& path) {
    shown_ = shown;
    folder_ = shown == Shown::folder ? path : QString();
    using Target = Place::Target;
    favoriteList_->mark(favoriteModel_.indexOf(Target::folder, folder_));
    shortcutList_->mark(shortcutModel_.indexOf(Target::folder, folder_));
    const bool isIPhone = device_ && device_->platform == DevicePlatform::iOS;
    const bool isMedia =
        shown == Shown::folder && source_.appBundleId && isMediaFolder(*source_.appBundleId);
    volumeList_->mark(shown == Shown::itself ? QModelIndex()
                      : isIPhone && isMedia  ? volumeModel_.indexOf(Target::media)
                      : isIPhone             ? volumeModel_.indexOf(Target::apps)
                                             : volumeModel_.indexOf(Target::folder, folder_));
}

void Sidebar::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        fitDeviceList();
}

} // namespace tessary
