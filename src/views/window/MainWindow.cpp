#include "views/window/MainWindow.h"

#include "app/LanguageManager.h"
#include "app/TransferNotice.h"
#include "views/browser/AppListView.h"
#include "views/common/Icons.h"
#include "views/common/PlainText.h"
#include "views/common/WindowStateStore.h"
#include "views/dialogs/HelpDialog.h"
#include "views/dialogs/WirelessDialog.h"
#include "views/import/ImportView.h"
#include "views/phone/PhonePage.h"
#include "views/settings/FileSettings.h"
#include "views/settings/SettingsWindow.h"
#include "views/sync/SyncDialogs.h"
#include "views/sync/SyncPanel.h"
#include "views/transfers/CopyHistoryDialog.h"
#include "views/transfers/TransferPanel.h"
#include "views/window/ApplicationWindows.h"
#include "views/window/BrowserSetups.h"
#include "views/window/MainMenu.h"
#include "views/window/Panes.h"
#include "views/window/WelcomeView.h"
#include "views/window/WindowBanner.h"
#include "views/window/WindowPages.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QFileDialog>
#include <QHideEvent>
#include <QListView>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QShowEvent>
#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>

namespace tessary {

namespace {

QString chooseLocalFolder(QWidget* asker, const QString& startAt) {
    return QFileDialog::getExistingDirectory(asker, MainWindow::tr("Folder on this computer"),
                                             startAt);
}

} // namespace

MainWindow::MainWindow(TessaryApp& app, CopyDialogs dialogs, OpenLocalFile openLocalFile,
                       MainWindow* first)
    : app_(app),
      first_(first),
      dialogs_(withDownloadFolder(std::move(dialogs), app.defaults())),
      openLocalFile_(std::move(openLocalFile)),
      ownCommon_(first == nullptr ? std::make_unique<Common>(app) : nullptr),
      common_(first == nullptr ? *ownCommon_ : first->common_),
      browser_(app.copyQueue(), browserSetup(app)),
      apps_([&services = app.services()](const DeviceInfo& device, const std::stop_token& stop) {
          return services.apps(device, stop);
      }),
      devices_(app.deviceManager(), app.phoneMounts()),
      import_(app.copyQueue(), app.importLedgers()),
      importAction_(new QAction(this)),
      choice_({app, browser_, apps_, import_}, [this] { return chosenDevice(); }),
      sidebar_(
          new Sidebar(devices_, app.favoritesManager(), app.phoneMounts(), sidebarCallbacks())),
      browserView_(new BrowserView(browser_, dialogs_, openLocalFile_)),
      importView_(new ImportView({import_, app.copyQueue(), app.stagedFiles(), app.defaults()},
                                 {chooseLocalFolder, app.setup().showInFolder})),
      phonePage_(makePhonePage()),
      banner_(new WindowBanner({app, browser_, common_.notices, choice_})),
      pages_(new WindowPages(
          {new WelcomeView([&app] { app.startDemo(); }), phonePage_,
           new AppListView(
               apps_, [this](const AppInfo& info) { choice_.openApp(info, QStringLiteral("/")); },
               [this](const AppInfo& info) {
                   if (const auto device = apps_.device())
                       app_.phoneMounts().open(*device, info, {});
               },
               [this] { choice_.showPhone(); }),
           browserView_, importView_},
          app, browser_, choice_, *banner_)),
      syncPanel_(new SyncPanel(
          common_.sync, [this] { common_.dialogs->makePair(*this); }, this)),
      transferPanel_(new TransferPanel(
          app.copyQueue(),
          {app.setup().showInFolder, [&app](const QUuid& id) { app.rememberedCopies().goOn(id); },
           [this] { showCopyHistory(); }})) {
    setWindowIcon(programIcon());
    resize(1180, 740);
    setMinimumSize(760, 460);
    if (first == nullptr)
        common_.dialogs = new SyncDialogs(common_.sync, *this, chooseLocalFolder);
    setCentralWidget(makeContent());
    makeMenus();
    importAction_->setObjectName(QStringLiteral("importAction"));
    importAction_->setIcon(lineIcon(QStringLiteral("camera-photo")));
    importAction_->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_P));
    sidebar_->setDrops(browserView_->drops());
    browserView_->setFavorites(favoriteCommands());
    browserView_->setShowApps([this] { choice_.showApps(); });
    browserView_->setFileClick([&defaults = app.defaults()] { return fileClickOf(defaults); });
    connectBrowser();
    connectChoice();
    connectSync();
    stateStore_ =
        new WindowStateStore({*this, *split_, browserView_->columns(), browser_}, app.defaults());
    keepTranslated(this, [this] { showTexts(); });
    makePlain(*this);
    if (const auto& notifier = app.setup().notifier; notifier && first == nullptr)
        transferNotice_ = std::make_unique<TransferNotice>(
            app_.copyQueue(),
            TransferNotice::Setup{notifier, [] { return QApplication::activeWindow() != nullptr; },
                                  [this] { bringToFront(*this); }});
    deviceListChanged(); // phones that were there before the window
}

QWidget* MainWindow::makeContent() {
    // The banner comes from below: nothing moves away under the pointer.
    auto* files = new QWidget;
    auto* filesColumn = new QVBoxLayout(files);
    filesColumn->setContentsMargins(0, 0, 0, 0);
    filesColumn->setSpacing(0);
    filesColumn->addWidget(pages_, 1);
    filesColumn->addWidget(banner_);
    panes_ = new Panes(files, *browserView_, *menuBar(), [this] {
        auto* local = new LocalPane(app_, browserSetup(app_), dialogs_, openLocalFile_);
        makePlain(*local);
        return local;
    });
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

void MainWindow::makeMenus() {
    MainMenuCallbacks callbacks;
    callbacks.newWindow = [this] { openWindow(); };
    callbacks.split = &panes_->toggle();
    callbacks.columns = &browserView_->columnMenu();
    callbacks.showHelp = [this] { showHelp(); };
    callbacks.showSettings = [this] { showSettings(); };
    callbacks.showWireless = [this] { showWireless(); };
    callbacks.showCopyHistory = [this] { showCopyHistory(); };
    callbacks.importPhotos = importAction_;
    callbacks.toggleFullScreen = [this] { setWindowState(windowState() ^ Qt::WindowFullScreen); };
    callbacks.quit = [] { QApplication::closeAllWindows(); };
    makeMainMenus(*menuBar(), browserView_->actions(), callbacks);
}

MainWindow& MainWindow::openWindow() {
    MainWindow& first = first_ == nullptr ? *this : *first_;
    auto* window = new MainWindow(app_, dialogs_, openLocalFile_, &first);
    window->setAttribute(Qt::WA_DeleteOnClose);
    first.others_.emplace_back(window);
    const auto& device = browser_.activeDevice();
    const int row = sidebar_->deviceList().currentIndex().row();
    if (row >= 0)
        window->sidebar_->deviceList().setCurrentIndex(window->devices_.index(row));
    if (device && device->platform == DevicePlatform::android &&
        window->browser_.activeDevice().has_value())
        window->browser_.navigateTo(browser_.currentPath());
    constexpr QPoint aside(36, 36);
    window->move(pos() + aside);
    window->show();
    return *window;
}

bool MainWindow::isTheOnlyOne() const {
    const auto windows = QApplication::topLevelWidgets();
    return std::none_of(windows.begin(), windows.end(), [this](const QWidget* each) {
        return each != this && each->isVisible() &&
               qobject_cast<const MainWindow*>(each) != nullptr;
    });
}

void MainWindow::showHelp() {
    auto* help = new HelpDialog(*menuBar(), this);
    help->setAttribute(Qt::WA_DeleteOnClose);
    help->show();
}

void MainWindow::connectBrowser() {
    connect(&app_.favoritesManager(), &FavoritesManager::favoritesChanged, browserView_,
            &BrowserView::updateActions);
    connect(&browser_, &FileBrowserViewModel::connectionChanged, this, &MainWindow::showSidebar);
    connect(&browser_, &FileBrowserViewModel::pathChanged, this, &MainWindow::showPlace);
    connect(&browser_, &FileBrowserViewModel::atPhoneChanged, this, [this] {
        showPlace();
        showPage();
        banner_->update();
    });
    connect(&browser_, &FileBrowserViewModel::stateChanged, this, [this] {
        sidebar_->setKnownFolders(knownFolders());
        showPage();
    });
    connect(&browser_, &FileBrowserViewModel::itemsDeleted, this, [this](const QStringList& paths) {
        const auto& device = browser_.activeDevice();
        for (const QString& path : paths)
            if (device)
                app_.favoritesManager().removeFavorites(browser_.files()->canonicalPath(path),
                                                        device->udid, choice_.appId());
    });
}

void MainWindow::connectChoice() {
    connect(&choice_, &PhoneChoice::changed, this, [this] {
        showSidebar();
        showPage();
    });
    connect(&choice_, &PhoneChoice::focusWanted, this,
            [this] { pages_->currentWidget()->setFocus(); });
    connect(importAction_, &QAction::triggered, &choice_, &PhoneChoice::openImport);
    connect(&import_, &ImportViewModel::stateChanged, this, [this] {
        if (choice_.isImporting() != (pages_->currentWidget() == importView_))
            showPage();
    });
    connect(&import_, &ImportViewModel::removalEnded, &common_.notices,
            &GeneralNotices::tellRemoval);
    QListView& list = sidebar_->deviceList();
    connect(list.selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& index) {
                wasChosenByPress_ = QApplication::mouseButtons().testFlag(Qt::LeftButton);
                choice_.choose(devices_.deviceAt(index));
            });
    connect(&list, &QListView::clicked, this, [this] {
        // A click on the phone of which something is shown leads up to itself.
        if (!std::exchange(wasChosenByPress_, false))
            choice_.showPhone();
        pages_->currentWidget()->setFocus();
    });
    connect(&app_.deviceManager(), &DeviceManager::devicesChanged, this,
            &MainWindow::deviceListChanged);
    connect(&app_.deviceManager(), &DeviceManager::troubleChanged, this,
            &MainWindow::troubleChanged);
}

FavoriteCommands MainWindow::favoriteCommands() {
    return {[this](const QString& path) {
                const auto& device = browser_.activeDevice();
                return device &&
                       app_.favoritesManager().isFavorite(device->udid, path, choice_.appId());
            },
            [this](const QString& name, const QString& path) {
                const auto& app = choice_.app();
                if (const auto& device = browser_.activeDevice())
                    app_.favoritesManager().toggleFavorite(
                        device->udid, name, path, choice_.appId(),
                        app ? std::optional(app->displayName) : std::nullopt);
            }};
}

MainWindow::~MainWindow() {
    // The views show what the members below hold: they go first.
    for (const QPointer<MainWindow>& other : others_)
        delete other.data();
    hide();
    if (first_ == nullptr)
        delete common_.dialogs;
    delete settings_;
    delete wireless_;
    delete history_;
    delete takeCentralWidget();
}

void MainWindow::showTexts() {
    importAction_->setText(tr("Import Photos…"));
    setWindowTitle(app_.isDemo() ? tr("Tessary: Virtual Phones") : QStringLiteral("Tessary"));
    setLocale(QLocale()); // dates and numbers of every view in it
    showPage();
    banner_->update();
}

void MainWindow::showSettings() {
    if (settings_ == nullptr)
        settings_ = new SettingsWindow(app_, common_.sync, *stateStore_, this);
    settings_->show();
    settings_->raise();
    settings_->activateWindow();
}

void MainWindow::showWireless() {
    if (wireless_ == nullptr)
        wireless_ = new WirelessDialog(app_.network(), app_.services().adbWays(), this);
    wireless_->show();
    wireless_->raise();
    wireless_->activateWindow();
}

void MainWindow::showCopyHistory() {
    if (history_ == nullptr)
        history_ = new CopyHistoryDialog(app_.rememberedCopies(), app_.setup().showInFolder, this);
    history_->show();
    history_->raise();
    history_->activateWindow();
}

Sidebar::Callbacks MainWindow::sidebarCallbacks() {
    return {[this](const DeviceFavorite& favorite) {
                choice_.openFavorite(favorite);
                pages_->currentWidget()->setFocus();
            },
            [this](const QString& path) {
                choice_.leaveImport();
                browser_.navigateTo(path);
                pages_->currentWidget()->setFocus();
            },
            [this] { choice_.openMedia(); },
            [this] { choice_.showApps(); },
            importAction_,
            [this](ProtocolMode mode) {
                if (const auto& device = browser_.activeDevice())
                    app_.deviceManager().chooseProtocolMode(device->udid, mode);
            },
            [this] { showWireless(); }};
}

void MainWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (!event->spontaneous())
        app_.deviceManager().startListening();
}

void MainWindow::hideEvent(QHideEvent* event) {
    QMainWindow::hideEvent(event);
    if (!event->spontaneous() && isTheOnlyOne())
        app_.deviceManager().stopListening();
}

void MainWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        setUpIconTheme();
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        browser_.takeDragFailures();
}

void MainWindow::connectSync() {
    if (first_ == nullptr)
        common_.dialogs->setNotifier(app_.setup().notifier);
    browserView_->setShowSync([this](const QWidget& anchor) {
        std::optional<DeviceInfo> device;
        if (browser_.state() == BrowserState::ready && browserView_->isVisible())
            device = browser_.activeDevice();
        app_.syncManager().setBrowsingContext(device, choice_.app(), browser_.currentPath());
        syncPanel_->popUpBelow(anchor);
    });
    connect(&app_.syncManager(), &SyncManager::syncDidComplete, this, [this](const QUuid& id) {
        browser_.folders().forgetAll();
        const SyncPair* pair = app_.syncManager().pair(id);
        const auto& device = browser_.activeDevice();
        if (pair != nullptr && device && device->udid == pair->deviceUDID &&
            browser_.state() != BrowserState::deviceLost)
            browser_.reload();
    });
    // One that failed has changed something, too.
    connect(&app_.syncManager(), &SyncManager::idle, this,
            [this] { browser_.folders().forgetAll(); });
}

/// What is under way is not thrown away by a slip of the hand.
void MainWindow::closeEvent(QCloseEvent* event) {
    // What this window deletes or moves ends with it, copies and syncs with the last one.
    const bool isLast = isTheOnlyOne();
    const bool isCopying =
        isLast && (!app_.copyQueue().summary().isIdle() || app_.promisedFiles().isBeingRead());
    const bool isChanging = browser_.isEditing() || import_.isRemoving();
    if (isCopying || isChanging || (isLast && app_.syncManager().isRunning())) {
        QMessageBox question(QMessageBox::Question, tr("Quit Tessary"),
                             isCopying    ? tr("Files are still being copied.")
                             : isChanging ? tr("Files on the phone are still being changed.")
                                          : tr("A sync is still running."),
                             QMessageBox::NoButton, this);
        question.setInformativeText(isCopying || !isChanging
                                        ? tr("Quitting cancels this. What has arrived whole stays.")
                                        : tr("Quitting stops this. What is done stays done."));
        QAbstractButton* quit =
            question.addButton(tr("Quit Tessary"), QMessageBox::DestructiveRole);
        question.setDefaultButton(question.addButton(QMessageBox::Cancel));
        makePlain(question);
        question.exec();
        if (question.clickedButton() != quit) {
            event->ignore();
            return;
        }
    }
    QMainWindow::closeEvent(event);
}

std::optional<DeviceInfo> MainWindow::chosenDevice() const {
    const DeviceInfo* device = devices_.deviceAt(sidebar_->deviceList().currentIndex());
    return device == nullptr ? std::nullopt : std::optional(*device);
}

void MainWindow::showSidebar() {
    const auto device = chosenDevice();
    FavoriteSource source;
    if (device && browser_.activeDevice() && browser_.activeDevice()->udid == device->udid) {
        source.files = browser_.files();
        source.appBundleId = choice_.appId();
        if (choice_.app())
            source.appName = choice_.app()->displayName;
    }
    importAction_->setEnabled(
        device && (device->platform == DevicePlatform::iOS || device->isDataAccessible()));
    sidebar_->showDevice(device, source);
    phonePage_->showDevice(device);
    showPlace();
}

void MainWindow::showPlace() {
    using Shown = Sidebar::Shown;
    const auto device = chosenDevice();
    const auto& active = browser_.activeDevice();
    const bool isBrowsed = device && active && active->udid == device->udid;
    sidebar_->showPlace(choice_.isChoosingApp()             ? Shown::apps
                        : isBrowsed && !choice_.isAtPhone() ? Shown::folder
                                                            : Shown::itself,
                        browser_.currentPath());
}

void MainWindow::deviceListChanged() {
    choice_.follow();
    // The first phone to come is the one that the user has just plugged in.
    QListView& list = sidebar_->deviceList();
    if (!list.currentIndex().isValid() && devices_.rowCount() > 0)
        list.setCurrentIndex(devices_.index(0));
    showSidebar();
    showPage();
    banner_->update();
}

void MainWindow::troubleChanged(const QString& deviceId) {
    const auto listed = apps_.device();
    // It was unlocked, or trusts this computer now.
    if (listed && listed->id() == deviceId && apps_.state() == AppListState::failed &&
        !app_.deviceManager().trouble(deviceId))
        apps_.reload();
    const auto& active = browser_.activeDevice();
    if (active && active->id() == deviceId && browser_.state() == BrowserState::failed &&
        !app_.deviceManager().trouble(deviceId))
        browser_.reload();
    showPage();
}

PhonePage* MainWindow::makePhonePage() {
    return new PhonePage(
        {app_.deviceManager(), common_.sync,
         [&files = app_.services().files()](const DeviceInfo& device) {
             return device.platform == DevicePlatform::iOS ? files.openMedia(device)
                                                           : files.open(device);
         }},
        {[this] { choice_.browseFiles(); },
         [this](const QString& path) {
             browser_.navigateTo(path);
             pages_->currentWidget()->setFocus();
         },
         [this] { choice_.showApps(); }, importAction_, [this] { banner_->releaseDevice(); }});
}

void MainWindow::showPage() {
    pages_->update([this](const QWidget& focus) { return sidebar_->isAncestorOf(&focus); });
}

/// The names of the folders in the main storage of the phone that is browsed, once it was listed.
std::optional<QSet<QString>> MainWindow::knownFolders() {
    if (!browser_.files())
        return std::nullopt;
    const auto items =
        browser_.folders().recall(browser_.files()->identity(), QStringLiteral("/sdcard"));
    if (!items)
        return std::nullopt;
    QSet<QString> names;
    for (const FileItem& item : *items)
        if (item.isDirectory)
            names.insert(item.name);
    return names;
}

} // namespace tessary
