#include "views/window/MainWindow.h"

#include "app/LanguageManager.h"
#include "app/TransferNotice.h"
#include "views/common/Icons.h"
#include "views/common/PlainText.h"
#include "views/common/WindowStateStore.h"
#include "views/dialogs/WirelessDialog.h"
#include "views/settings/SettingsWindow.h"
#include "views/sync/SyncDialogs.h"
#include "views/sync/SyncPanel.h"
#include "views/tabs/BrowserSetups.h"
#include "views/tabs/Tabs.h"
#include "views/transfers/CopyHistoryDialog.h"
#include "views/transfers/TransferPanel.h"
#include "views/window/ApplicationWindows.h"
#include "views/window/Panes.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QHideEvent>
#include <QListView>
#include <QMenuBar>
#include <QMessageBox>
#include <QScopedValueRollback>
#include <QShowEvent>
#include <QSplitter>

#include <algorithm>

namespace tessary {

MainWindow::MainWindow(TessaryApp& app, CopyDialogs dialogs, OpenLocalFile openLocalFile,
                       MainWindow* first)
    : app_(app),
      first_(first),
      dialogs_(withDownloadFolder(std::move(dialogs), app.defaults())),
      openLocalFile_(std::move(openLocalFile)),
      ownCommon_(first == nullptr ? std::make_unique<Common>(app) : nullptr),
      common_(first == nullptr ? *ownCommon_ : first->common_),
      devices_(app.deviceManager(), app.phoneMounts()),
      importAction_(new QAction(this)),
      sidebar_(
          new Sidebar(devices_, app.favoritesManager(), app.phoneMounts(), sidebarCallbacks())),
      tabs_(new Tabs([this] { return makeTab(); })),
      syncPanel_(new SyncPanel(
          common_.sync, [this] { common_.dialogs->makePair(*this); }, this)),
      transferPanel_(new TransferPanel(
          app.copyQueue(),
          {app.setup().showInFolder, [&app](const QUuid& id) { app.rememberedCopies().goOn(id); },
           [this] { showCopyHistory(); }})) {
    setWindowIcon(icon("tessaryPicture"));
    resize(1180, 740);
    setMinimumSize(760, 460);
    if (first == nullptr)
        common_.dialogs = new SyncDialogs(common_.sync, *this, app.setup().notifier);
    setCentralWidget(makeContent());
    makeMenus();
    importAction_->setObjectName(QStringLiteral("importAction"));
    importAction_->setIcon(lineIcon(QStringLiteral("camera-photo")));
    importAction_->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_P));
    connect(importAction_, &QAction::triggered, this, [this] { choice().openImport(); });
    connectSidebar();
    connect(tabs_, &Tabs::currentChanged, this, &MainWindow::tabChanged);
    connect(tabs_, &Tabs::closeWanted, this, &MainWindow::closeTab);
    stateStore_ = new WindowStateStore(
        {*this, *split_,
         [this] {
             return WindowStateStore::Shown{browser(), browserView().columns()};
         }},
        app.defaults());
    keepTranslated(this, [this] {
        importAction_->setText(tr("Import Photos…"));
        setWindowTitle(app_.setup().isDemo ? tr("Tessary: Virtual Phones")
                                           : QStringLiteral("Tessary"));
        setLocale(QLocale()); // dates and numbers of every view in it
    });
    makePlain(*this);
    if (const auto& notifier = app.setup().notifier; notifier && first == nullptr)
        transferNotice_ = std::make_unique<TransferNotice>(
            app_.copyQueue(),
            TransferNotice::Setup{notifier, [] { return QApplication::activeWindow() != nullptr; },
                                  [this] { bringToFront(*this); }});
    tabChanged();
    deviceListChanged(); // phones that were there before the window
}

PhoneTab* MainWindow::makeTab() {
    auto* tab =
        new PhoneTab({app_, common_.sync, common_.notices, dialogs_, openLocalFile_, importAction_,
                      [this](const QWidget& focus) { return sidebar_->isAncestorOf(&focus); },
                      [this](const QWidget& anchor) { showSync(anchor); },
                      [this](const QString& path) { openTab(path, false); }});
    connect(tab, &PhoneTab::changed, &firstWindow(), &MainWindow::placesChanged);
    connect(tab, &PhoneTab::changed, this, [this, tab] {
        if (tab == &this->tab())
            followTab();
    });
    return tab;
}

QWidget* MainWindow::makeContent() {
    panes_ = new Panes(tabs_, browserView(), *menuBar(), [this](const QString& folder) {
        auto* local = new LocalPane(app_, browserSetup(app_), dialogs_, openLocalFile_, folder);
        stateStore_->addLocal(local->view().columns());
        makePlain(*local);
        return local;
    });
    connect(panes_, &Panes::localFolderChanged, &firstWindow(), &MainWindow::placesChanged);
    auto* right = new QSplitter(Qt::Vertical);
    right->addWidget(panes_);
    right->addWidget(transferPanel_);
    right->setStretchFactor(0, 1);
    right->setSizes({510, 200});
    right->setChildrenCollapsible(false);
    right->setHandleWidth(1);
    split_ = new QSplitter(Qt::Horizontal);
    split_->addWidget(sidebar_);
    split_->addWidget(right);
    split_->setStretchFactor(1, 1);
    split_->setSizes({250, 930});
    split_->setChildrenCollapsible(false);
    split_->setHandleWidth(1);
    return split_;
}

PhoneTab& MainWindow::tab() const {
    return tabs_->current();
}

TabPlace MainWindow::place() const {
    return tab().place().value_or(TabPlace());
}

PhoneTab& MainWindow::openTab(const QString& path, bool isShown) {
    TabPlace there = place();
    there.path = path;
    return openTab(there, isShown);
}

PhoneTab& MainWindow::openTab(const TabPlace& place, bool isShown) {
    PhoneTab& opened = tabs_->add();
    useKeys(opened.view().actions(), false);
    stateStore_->addTab({opened.browser(), opened.view().columns()});
    opened.open(place);
    browser().takeDragFailures(); // the new one has them otherwise
    if (isShown)
        tabs_->show(opened);
    return opened;
}

void MainWindow::closeTab(PhoneTab& tab) {
    if (tabs_->all().size() == 1)
        close();
    else if (!tab.isChanging() || mayEnd(false, true)) {
        tabs_->close(tab);
        Q_EMIT firstWindow().placesChanged();
        browserView().takeClipboard(tab.view());
    }
}

MainWindow& MainWindow::firstWindow() {
    return first_ == nullptr ? *this : *first_;
}

MainWindow& MainWindow::openWindow(const TabPlace& place) {
    MainWindow& first = firstWindow();
    auto* window = new MainWindow(app_, dialogs_, openLocalFile_, &first);
    window->setAttribute(Qt::WA_DeleteOnClose);
    first.others_.emplace_back(window);
    window->tab().open(place);
    window->followTab();
    constexpr QPoint aside(36, 36);
    window->move(pos() + aside);
    window->show();
    return *window;
}

bool MainWindow::isTheOnlyOne() {
    return std::ranges::none_of(
        allWindows(), [this](const MainWindow* each) { return each != this && each->isVisible(); });
}

std::vector<MainWindow*> MainWindow::allWindows() {
    MainWindow& first = firstWindow();
    std::vector<MainWindow*> all{&first};
    for (const QPointer<MainWindow>& other : first.others_)
        if (other)
            all.push_back(other);
    return all;
}

void MainWindow::connectSidebar() {
    QListView& list = sidebar_->deviceList();
    connect(list.selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& index) {
                if (isFollowing_)
                    return;
                wasChosenByPress_ = QApplication::mouseButtons().testFlag(Qt::LeftButton);
                tab().choose(devices_.deviceAt(index));
            });
    connect(&list, &QListView::clicked, this, [this] {
        // A click on the phone of which something is shown leads up to itself.
        if (!std::exchange(wasChosenByPress_, false))
            choice().showPhone();
        tab().focusPage();
    });
    connect(&app_.deviceManager(), &DeviceManager::devicesChanged, this,
            &MainWindow::deviceListChanged);
}

MainWindow::~MainWindow() {
    // The views show what the members below hold: they go first.
    for (const QPointer<MainWindow>& other : others_)
        delete other.data();
    hide();
    tabs_->disconnect(this);
    for (PhoneTab* each : tabs_->all())
        each->disconnect(this);
    if (first_ == nullptr)
        delete common_.dialogs;
    delete settings_;
    delete wireless_;
    delete history_;
    delete takeCentralWidget();
}

void MainWindow::showSettings() {
    if (settings_ == nullptr)
        settings_ = new SettingsWindow(app_, common_.sync, *stateStore_, this);
    bringToFront(*settings_);
}

void MainWindow::showWireless() {
    if (wireless_ == nullptr)
        wireless_ = new WirelessDialog(app_.setup().network, app_.services().adbWays(), this);
    bringToFront(*wireless_);
}

void MainWindow::showCopyHistory() {
    if (history_ == nullptr)
        history_ = new CopyHistoryDialog(app_.rememberedCopies(), app_.setup().showInFolder, this);
    bringToFront(*history_);
}

Sidebar::Callbacks MainWindow::sidebarCallbacks() {
    return {[this](const DeviceFavorite& favorite) {
                choice().openFavorite(favorite);
                tab().focusPage();
            },
            [this](const QString& path) {
                choice().leaveImport();
                browser().navigateTo(path);
                tab().focusPage();
            },
            [this] { choice().openMedia(); },
            [this] { choice().showApps(); },
            importAction_,
            [this](ProtocolMode mode) {
                if (const auto& device = browser().activeDevice())
                    app_.deviceManager().chooseProtocolMode(device->udid, mode);
            },
            [this] { showWireless(); }};
}

void MainWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (!event->spontaneous())
        app_.deviceManager().startListening();
    Q_EMIT firstWindow().placesChanged();
}

void MainWindow::hideEvent(QHideEvent* event) {
    QMainWindow::hideEvent(event);
    if (!event->spontaneous() && isTheOnlyOne())
        app_.deviceManager().stopListening();
    Q_EMIT firstWindow().placesChanged();
}

void MainWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        setUpIconTheme();
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        browser().takeDragFailures();
}

void MainWindow::showSync(const QWidget& anchor) {
    const auto device = tab().showsFolder() ? browser().activeDevice() : std::nullopt;
    common_.sync.setBrowsed({device, choice().app(), browser().currentPath()});
    syncPanel_->popUpBelow(anchor);
}

bool MainWindow::isChanging() const {
    return std::ranges::any_of(tabs_->all(), &PhoneTab::isChanging);
}

/// What is under way is not thrown away by a slip of the hand: asks about copies and syncs where
/// all ends, and about what is being changed on a phone. True when there is nothing to ask.
bool MainWindow::mayEnd(bool endsAll, bool endsChanges) {
    const bool isCopying =
        endsAll && (!app_.copyQueue().summary().isIdle() || app_.dragMount().isBeingRead() ||
                    app_.phoneMounts().isBeingRead());
    if (!isCopying && !endsChanges && !(endsAll && app_.syncManager().isRunning()))
        return true;
    const QString end = endsAll ? tr("Quit Tessary") : tr("Close");
    QMessageBox question(QMessageBox::Question, end,
                         isCopying     ? tr("Files are still being copied.")
                         : endsChanges ? tr("Files on the phone are still being changed.")
                                       : tr("A sync is still running."),
                         QMessageBox::NoButton, this);
    if (!endsAll)
        question.setInformativeText(tr("Closing stops this. What is done stays done."));
    else if (isCopying || !endsChanges)
        question.setInformativeText(tr("Quitting cancels this. What has arrived whole stays."));
    else
        question.setInformativeText(tr("Quitting stops this. What is done stays done."));
    return isAgreed(question, end);
}

void MainWindow::quit() {
    const auto windows = allWindows();
    if (!mayEnd(true, std::ranges::any_of(windows, &MainWindow::isChanging)))
        return;
    Q_EMIT firstWindow().quitting();
    for (MainWindow* window : windows)
        window->hasAgreed_ = true;
    QApplication::closeAllWindows();
}

void MainWindow::closeEvent(QCloseEvent* event) {
    // What this window deletes or moves ends with it, copies and syncs with the last one.
    if (std::exchange(hasAgreed_, false) || mayEnd(isTheOnlyOne(), isChanging()))
        QMainWindow::closeEvent(event);
    else
        event->ignore();
}

/// Another tab is shown: keys, menus and sidebar are its own now.
void MainWindow::tabChanged() {
    Q_EMIT firstWindow().placesChanged();
    chooseFirst();
    panes_->usePhone(browserView());
    sidebar_->setDrops(browserView().drops());
    browser().takeDragFailures();
    followTab();
    if (isVisible())
        tab().focusPage();
}

/// Shows in the sidebar where the tab is.
void MainWindow::followTab() {
    const auto device = tab().device();
    {
        const QScopedValueRollback following(isFollowing_, true);
        sidebar_->deviceList().setCurrentIndex(device ? devices_.indexOf(device->id())
                                                      : QModelIndex());
    }
    importAction_->setEnabled(
        device && (device->platform == DevicePlatform::iOS || device->isDataAccessible()));
    const FavoriteSource source = tab().favoriteSource();
    sidebar_->showDevice(device, source);
    sidebar_->setKnownFolders(tab().knownFolders());
    using Shown = Sidebar::Shown;
    sidebar_->showPlace(choice().isChoosingApp()                ? Shown::apps
                        : source.files && !choice().isAtPhone() ? Shown::folder
                                                                : Shown::itself,
                        browser().currentPath());
}

void MainWindow::deviceListChanged() {
    for (PhoneTab* each : tabs_->all())
        each->follow();
    chooseFirst();
    followTab();
}

/// The first phone to come is the one that the user has just plugged in.
void MainWindow::chooseFirst() {
    if (!tab().device() && devices_.rowCount() > 0)
        tab().choose(devices_.deviceAt(devices_.index(0)));
}

} // namespace tessary
