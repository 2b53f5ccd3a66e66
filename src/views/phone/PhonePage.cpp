#include "views/phone/PhonePage.h"

#include "app/LanguageManager.h"
#include "app/texts/DisplayNames.h"
#include "app/texts/ErrorText.h"
#include "app/texts/SharedWords.h"
#include "base/text/Printable.h"
#include "views/common/Icons.h"
#include "views/common/Layouts.h"
#include "views/common/PlainText.h"
#include "views/common/StatusBanner.h"
#include "views/phone/VolumeCard.h"
#include "views/sidebar/DeviceListModel.h"
#include "views/sync/SyncPairList.h"

#include <QAbstractButton>
#include <QAction>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace tessary {

namespace {

constexpr int pictureSide = 88;
constexpr int widest = 760; // pixels of the column: longer lines are hard to read
constexpr int margin = 28;

QLabel* heading() {
    auto* label = new QLabel;
    label->setFont(demiBold(scaled(label->font(), 1.1)));
    return label;
}

QPushButton* command(const char* name, const char* iconName) {
    auto* button = new QPushButton(lineIcon(QString::fromLatin1(iconName)), QString());
    button->setObjectName(QString::fromLatin1(name));
    button->setIconSize({18, 18});
    return button;
}

/// One of a phone's storages, by its place in volumes(); an iPhone has one.
StorageVolume storageOf(const DeviceInfo& device, std::size_t volume) {
    return volume < device.volumes.size() ? device.volumes[volume] : device.mainStorage();
}

QString rootOf(const Place& volume) {
    return volume.path.isEmpty() ? QStringLiteral("/") : volume.path;
}

} // namespace

PhonePage::PhonePage(Parts parts, Callbacks callbacks)
    : parts_(std::move(parts)),
      callbacks_(std::move(callbacks)),
      uses_(this),
      picture_(new QLabel),
      name_(new QLabel),
      detail_(makeNote()),
      trouble_(new StatusBanner),
      browse_(command("browseFiles", "folder-open")),
      apps_(command("showApps", "view-list-icons")),
      import_(command("importFromPage", "camera-photo")),
      sync_(command("syncNow", "folder-sync")),
      storageHeading_(heading()),
      looking_(makeNote()),
      cards_(new QVBoxLayout),
      syncHeading_(heading()),
      pairs_(new SyncPairList(parts_.sync)) {
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    trouble_->setObjectName(QStringLiteral("phoneTrouble"));
    looking_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    auto* storageLine = new QHBoxLayout;
    storageLine->addWidget(storageHeading_);
    storageLine->addWidget(looking_, 1);
    cards_->setSpacing(16);

    auto* column = new QWidget;
    column->setMaximumWidth(widest);
    auto* content = makeColumn(*column, 12);
    content->addLayout(makeHeader());
    content->addWidget(trouble_);
    content->addLayout(makeCommands());
    content->addSpacing(10);
    content->addLayout(storageLine);
    content->addLayout(cards_);
    content->addSpacing(10);
    content->addWidget(syncHeading_);
    content->addWidget(pairs_);
    content->addStretch(1);
    auto* all = new QWidget;
    auto* row = new QHBoxLayout(all);
    row->setContentsMargins(margin, margin, margin, margin);
    row->addStretch(1);
    row->addWidget(column, 1000);
    row->addStretch(1);
    setWidget(all);
    for (QWidget* ground : {static_cast<QWidget*>(this), viewport(), all})
        ground->setBackgroundRole(QPalette::Base);

    connect(&uses_, &StorageUses::changed, this, &PhonePage::showUse);
    connect(&parts_.devices, &DeviceManager::troubleChanged, this, &PhonePage::showTrouble);
    SyncManager& syncs = parts_.sync.manager();
    connect(&syncs, &SyncManager::syncPairsChanged, this, &PhonePage::showSync);
    connect(&syncs, &SyncManager::syncPairChanged, this, &PhonePage::showSync);
    keepTranslated(this, [this] { showTexts(); });
    makePlain(*this);
}

QLayout* PhonePage::makeHeader() {
    name_->setFont(demiBold(scaled(name_->font(), 1.7)));
    name_->setWordWrap(true);
    auto* texts = new QVBoxLayout;
    texts->setSpacing(2);
    texts->addStretch(1);
    texts->addWidget(name_);
    texts->addWidget(detail_);
    texts->addStretch(1);
    auto* row = new QHBoxLayout;
    row->setSpacing(18);
    row->addWidget(picture_, 0, Qt::AlignTop);
    row->addLayout(texts, 1);
    return row;
}

QLayout* PhonePage::makeCommands() {
    connect(browse_, &QPushButton::clicked, this, [this] { callbacks_.browseFiles(); });
    connect(apps_, &QPushButton::clicked, this, [this] { callbacks_.showApps(); });
    QAction* import = callbacks_.importPhotos;
    connect(import_, &QPushButton::clicked, import, &QAction::trigger);
    connect(import, &QAction::changed, import_,
            [this, import] { import_->setEnabled(import->isEnabled()); });
    connect(sync_, &QPushButton::clicked, this, &PhonePage::syncNow);
    commands_ = new QHBoxLayout;
    commands_->setSpacing(6);
    for (QPushButton* button : {browse_, apps_, import_, sync_})
        commands_->addWidget(button);
    commands_->addStretch(1);
    return commands_;
}

/// One below the other where they have no room side by side.
void PhonePage::fitCommands() {
    int width = 2 * margin;
    for (const QPushButton* button : {browse_, apps_, import_, sync_})
        if (!button->isHidden())
            width += button->sizeHint().width() + commands_->spacing();
    commands_->setDirection(width > viewport()->width() ? QBoxLayout::TopToBottom
                                                        : QBoxLayout::LeftToRight);
}

void PhonePage::showTexts() {
    setAccessibleName(tr("Phone"));
    apps_->setText(words::apps());
    import_->setText(tr("Import Photos…"));
    sync_->setText(tr("Sync Now"));
    storageHeading_->setText(tr("Storage"));
    looking_->setText(tr("Looking at what fills it…"));
    syncHeading_->setText(tr("Folders Kept in Step"));
    volumes_.clear(); // their names are anew
    showDevice(device_);
}

void PhonePage::showDevice(const std::optional<DeviceInfo>& device) {
    if (!device)
        return;
    const bool isOther = !device_ || device_->id() != device->id() ||
                         device_->isDataAccessible() != device->isDataAccessible();
    device_ = device;
    const bool isIPhone = device->platform == DevicePlatform::iOS;
    picture_->setPixmap(devicePicture(*device).pixmap(pictureSide, pictureSide));
    const QString title = deviceTitle(*device);
    name_->setText(title);
    QStringList details;
    const QString maker = printable(device->manufacturer.value_or(QString()));
    if (!maker.isEmpty() && !title.contains(maker, Qt::CaseInsensitive))
        details << maker;
    details << deviceDetail(*device);
    if (device->connectionType == ConnectionType::network)
        details << tr("Wireless");
    detail_->setText(details.join(QStringLiteral("  ·  ")));
    browse_->setText(isIPhone ? tr("Browse Photos") : tr("Browse Files"));
    browse_->setEnabled(!device->isLocked);
    apps_->setVisible(isIPhone);
    fitCommands();
    pairs_->showDevice(device->udid);
    showTrouble();
    showVolumes();
    showSync();
    if (isOther && isVisible())
        look();
    if (hasFocus())
        focusFirst(); // it could do nothing before
}

void PhonePage::showTrouble() {
    if (!device_)
        return;
    BannerMessage message;
    message.kind = BannerMessage::Kind::warning;
    message.canBeClosed = false;
    if (const auto trouble = parts_.devices.trouble(device_->id())) {
        message.words = errorText(trouble->error);
        if (trouble->isHeld())
            message.actions.push_back({tr("Release the Phone"), callbacks_.releaseDevice});
    } else if (device_->isLocked) {
        message.words = {tr("This phone is locked"),
                         tr("It shows its files once you unlock it and choose “File transfer” in "
                            "its USB notification. This window follows by itself."),
                         {}};
    } else {
        trouble_->clear();
        return;
    }
    trouble_->show(message);
}

/// The storages that have a card.
std::vector<Place> PhonePage::volumes() const {
    if (device_->platform == DevicePlatform::android)
        return volumesOf(*device_);
    if (device_->mainStorage().totalBytes == 0)
        return {};
    return {{QStringLiteral("drive-harddisk"),
             placeDisplayName(QStringLiteral("Internal Storage")),
             {},
             {}}};
}

void PhonePage::showVolumes() {
    const std::vector<Place> now = volumes();
    const auto isSame = [](const Place& a, const Place& b) {
        return a.path == b.path && a.title == b.title;
    };
    if (!std::ranges::equal(now, volumes_, isSame)) {
        volumes_ = now;
        for (VolumeCard* card : cardOf_)
            delete card;
        cardOf_.clear();
        for (const Place& volume : volumes_) {
            std::function<void()> open;
            if (!volume.path.isEmpty())
                open = [this, path = volume.path] { callbacks_.openFolder(path); };
            auto* card = new VolumeCard(volume, std::move(open));
            makePlain(*card);
            cards_->addWidget(card);
            cardOf_.push_back(card);
        }
        // Rows come in the order in which they are read.
        QWidget* before = sync_;
        for (const VolumeCard* card : cardOf_) {
            setTabOrder(before, &card->heading());
            before = &card->heading();
        }
        if (isVisible())
            look();
    }
    storageHeading_->setVisible(!volumes_.empty());
    showUse();
}

void PhonePage::showUse() {
    looking_->setVisible(uses_.isLooking() && !volumes_.empty());
    if (!device_ || cardOf_.empty())
        return;
    const auto files = parts_.open(*device_);
    for (std::size_t i = 0; i < cardOf_.size(); ++i)
        cardOf_[i]->show(storageOf(*device_, i), uses_.of(*files, rootOf(volumes_[i])));
}

void PhonePage::look() {
    if (!device_ || !device_->isDataAccessible() || volumes_.empty())
        return;
    std::vector<StorageUses::Storage> storages;
    for (std::size_t i = 0; i < volumes_.size(); ++i)
        storages.push_back({rootOf(volumes_[i]), storageOf(*device_, i).usedBytes()});
    uses_.look(parts_.open(*device_), std::move(storages));
    showUse();
}

void PhonePage::showSync() {
    const auto& pairs = parts_.sync.manager().syncPairs();
    sync_->setEnabled(device_ && device_->isDataAccessible() &&
                      std::ranges::any_of(pairs, [this](const SyncPair& pair) {
                          return pair.deviceUDID == device_->udid &&
                                 !parts_.sync.manager().isRunningOrWaiting(pair.id);
                      }));
}

/// Runs this phone's pairs. One that was never synced is shown first; then it is the only one.
void PhonePage::syncNow() {
    std::vector<QUuid> known;
    std::optional<QUuid> unknown;
    for (const SyncPair& pair : parts_.sync.manager().syncPairs()) {
        if (pair.deviceUDID != device_->udid)
            continue;
        if (pair.lastSyncedAt)
            known.push_back(pair.id);
        else if (!unknown)
            unknown = pair.id;
    }
    if (known.empty() && unknown)
        known.push_back(*unknown);
    for (const QUuid& id : known)
        parts_.sync.run(id);
}

/// Gives the keys to the first command that can be used.
void PhonePage::focusFirst() {
    for (QPushButton* button : {browse_, import_, sync_})
        if (button->isEnabled()) {
            button->setFocus(Qt::OtherFocusReason);
            return;
        }
}

void PhonePage::focusInEvent(QFocusEvent* event) {
    QScrollArea::focusInEvent(event);
    focusFirst();
}

/// Return does what the Space bar does, as in a listing.
void PhonePage::keyPressEvent(QKeyEvent* event) {
    auto* button = qobject_cast<QAbstractButton*>(focusWidget());
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && button != nullptr)
        button->click();
    else
        QScrollArea::keyPressEvent(event);
}

void PhonePage::showEvent(QShowEvent* event) {
    QScrollArea::showEvent(event);
    look();
}

void PhonePage::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    fitCommands();
}

void PhonePage::hideEvent(QHideEvent* event) {
    QScrollArea::hideEvent(event);
    uses_.stop();
}

} // namespace tessary
