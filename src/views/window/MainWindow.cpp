#include "views/window/MainWindow.h"

#include "app/LanguageManager.h"
#include "app/TransferNotice.h"
#include "app/texts/ProblemText.h"
#include "base/text/Printable.h"
#include "base/threads/Background.h"
#include "views/browser/AppListView.h"
#include "views/common/Icons.h"
#include "views/common/PlaceholderView.h"
#include "views/common/PlainText.h"
#include "views/common/StatusBanner.h"
#include "views/common/WindowStateStore.h"
#include "views/dialogs/WirelessDialog.h"
#include "views/import/ImportView.h"
#include "views/settings/SettingsWindow.h"
#include "views/sync/SyncDialogs.h"
#include "views/sync/SyncPanel.h"
#include "views/transfers/TransferPanel.h"
#include "views/window/ApplicationWindows.h"
#include "views/window/MainMenu.h"
#include "views/window/WelcomeView.h"

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
#include <QStackedWidget>
#include <QVBoxLayout>

namespace tessary {

namespace {

BrowserSetup browserSetup(TessaryApp& app) {
    BrowserSetup setup;
    setup.openAndroid = [&app](const DeviceInfo& device) {
        return app.services().files().open(device);
    };
    setup.openApp = [&app](const DeviceInfo& device, const AppInfo& chosen) {
        return app.services().files().openApp(device, chosen);
    };
    setup.staged = &app.stagedFiles();
    setup.promises = &app.promisedFiles();
    return setup;
}

} // namespace

MainWindow::MainWindow(TessaryApp& app, CopyDialogs dialogs, OpenLocalFile openLocalFile,
                       QWidget* parent)
    : QMainWindow(parent),
      app_(app),
      browser_(app.copyQueue(), browserSetup(app)),
      apps_([&services = app.services()](const DeviceInfo& device, const std::stop_token& stop) {
          return services.apps(device, stop);
      }),
      devices_(app.deviceManager()),
      import_(app.copyQueue(), app.importLedgers()),
      importAction_(new QAction(this)),
      sync_(app.syncManager(), app.deviceManager()),
      notices_(app, sync_, [this] { releaseDevice(); }),
      sidebar_(new Sidebar(devices_, app.favoritesManager(), sidebarCallbacks())),
      banner_(new StatusBanner),
      pages_(new QStackedWidget),
      welcome_(new WelcomeView([&app] { app.startDemo(); })),
      notice_(new PlaceholderView),
      appList_(new AppListView(
          apps_, [this](const AppInfo& info) { openApp(info, QStringLiteral("/")); })),
      browserView_(new BrowserView(browser_, std::move(dialogs), std::move(openLocalFile))),
      importView_(new ImportView({import_, app.copyQueue(), app.stagedFiles(), app.defaults()},
                                 {[](QWidget* asker, const QString& startAt) {
                                      return QFileDialog::getExistingDirectory(
                                          asker, tr("Folder on this computer"), startAt);
                                  },
                                  app.setup().showInFolder})),
      syncPanel_(new SyncPanel(
          sync_, [this] { syncDialogs_->makePair(); }, this)),
      syncDialogs_(new SyncDialogs(sync_, *this,
                                   [](QWidget* asker, const QString& startAt) {
                                       return QFileDialog::getExistingDirectory(
                                           asker, tr("Folder on this computer"), startAt);
                                   })),
      transferPanel_(new TransferPanel(app.copyQueue(), app.setup().showInFolder)) {
    setWindowIcon(programIcon());
    resize(1180, 740);
    setMinimumSize(760, 460);

    for (QWidget* page : {static_cast<QWidget*>(welcome_), static_cast<QWidget*>(notice_),
                          static_cast<QWidget*>(appList_), static_cast<QWidget*>(browserView_),
                          static_cast<QWidget*>(importView_)})
        pages_->addWidget(page);
    // The banner comes from below: nothing moves away under the pointer.
    auto* files = new QWidget;
    auto* filesColumn = new QVBoxLayout(files);
    filesColumn->setContentsMargins(0, 0, 0, 0);
    filesColumn->setSpacing(0);
    filesColumn->addWidget(pages_, 1);
    filesColumn->addWidget(banner_);
    auto* right = new QSplitter(Qt::Vertical);
    right->addWidget(files);
    right->addWidget(transferPanel_);
    right->setStretchFactor(0, 1);
    right->setSizes({510, 200});
    right->setChildrenCollapsible(false);
    right->setHandleWidth(1);
    auto* split = new QSplitter(Qt::Horizontal);
    split->addWidget(sidebar_);
    split->addWidget(right);
    split->setStretchFactor(1, 1);
    split->setSizes({250, 930});
    split->setChildrenCollapsible(false);
    split->setHandleWidth(1);
    setCentralWidget(split);
    makeMainMenus(*menuBar(), browserView_->actions(),
                  {[this] { showSettings(); }, [this] { showWireless(); }, importAction_,
                   [this] { setWindowState(windowState() ^ Qt::WindowFullScreen); },
                   [] { QApplication::closeAllWindows(); }});
    connectSync();
    importAction_->setObjectName(QStringLiteral("importAction"));
    importAction_->setIcon(lineIcon(QStringLiteral("camera-photo")));
    importAction_->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_I));
    connect(importAction_, &QAction::triggered, this, &MainWindow::showImport);
    connect(&import_, &ImportViewModel::stateChanged, this, [this] {
        if (isImporting() != (pages_->currentWidget() == importView_))
            showPage();
    });

    connect(sidebar_->deviceList().selectionModel(), &QItemSelectionModel::currentChanged, this,
            &MainWindow::chooseDevice);
    connect(&sidebar_->deviceList(), &QListView::clicked, this, [this] {
        // A click on the phone whose files are shown leads up to its apps.
        if (!std::exchange(wasChosenByPress_, false)) {
            leaveImport();
            showApps();
        }
        pages_->currentWidget()->setFocus();
    });
    sidebar_->setDrops(browserView_->drops());
    browserView_->setFavorites(
        {[this](const QString& path) {
             const auto& device = browser_.activeDevice();
             return device && app_.favoritesManager().isFavorite(device->udid, path, chosenAppId());
         },
         [this](const QString& name, const QString& path) {
             if (const auto& device = browser_.activeDevice())
                 app_.favoritesManager().toggleFavorite(
                     device->udid, name, path, chosenAppId(),
                     chosenApp_ ? std::optional(chosenApp_->displayName) : std::nullopt);
         }});
    browserView_->setShowApps([this] { showApps(); });
    connect(&app.favoritesManager(), &FavoritesManager::favoritesChanged, browserView_,
            &BrowserView::updateActions);
    connect(&browser_, &FileBrowserViewModel::connectionChanged, this, &MainWindow::showSidebar);
    connect(&browser_, &FileBrowserViewModel::pathChanged, this,
            [this] { sidebar_->showFolder(browser_.currentPath()); });
    connect(&browser_, &FileBrowserViewModel::itemsDeleted, this, [this](const QStringList& paths) {
        const auto& device = browser_.activeDevice();
        for (const QString& path : paths)
            if (device)
                app_.favoritesManager().removeFavorites(browser_.files()->canonicalPath(path),
                                                        device->udid, chosenAppId());
    });
    connect(&app.deviceManager(), &DeviceManager::devicesChanged, this,
            &MainWindow::deviceListChanged);
    connect(&app.deviceManager(), &DeviceManager::troubleChanged, this, [this](const QString& id) {
        const auto listed = apps_.device();
        // It was unlocked, or trusts this computer now.
        if (listed && listed->id() == id && apps_.state() == AppListState::failed &&
            !app_.deviceManager().trouble(id))
            apps_.reload();
        showPage();
        showBanner();
    });
    connect(&browser_, &FileBrowserViewModel::problemChanged, this, &MainWindow::showBanner);
    connect(&notices_, &GeneralNotices::changed, this, &MainWindow::showBanner);
    connect(&browser_, &FileBrowserViewModel::stateChanged, this, [this] {
        sidebar_->setKnownFolders(knownFolders());
        showPage();
        showBanner();
    });
    // What went wrong before counts no more once something has worked.
    const auto dismissOld = [this] {
        if (!browser_.isProblemOfLoad())
            browser_.dismissProblem();
    };
    connect(&browser_, &FileBrowserViewModel::folderCreated, this, dismissOld);
    connect(&browser_, &FileBrowserViewModel::itemRenamed, this, dismissOld);
    connect(&browser_, &FileBrowserViewModel::itemsDeleted, this, dismissOld);
    stateStore_ =
        new WindowStateStore({*this, *split, browserView_->columns(), browser_}, app.defaults());
    keepTranslated(this, [this] { showTexts(); });
    makePlain(*this);
    if (const auto& notifier = app.setup().notifier)
        transferNotice_ = std::make_unique<TransferNotice>(
            app_.copyQueue(),
            TransferNotice::Setup{notifier, [] { return QApplication::activeWindow() != nullptr; },
                                  [this] { bringToFront(*this); }});
    deviceListChanged(); // phones that were there before the window
}

MainWindow::~MainWindow() {
    // The views show what the members below hold: they go first.
    hide();
    delete settings_;
    delete wireless_;
    delete takeCentralWidget();
}

void MainWindow::showTexts() {
    importAction_->setText(tr("Import Photos…"));
    setWindowTitle(app_.isDemo() ? tr("Tessary: Virtual Phones") : QStringLiteral("Tessary"));
    setLocale(QLocale()); // dates and numbers of every view in it
    showPage();
    showBanner();
}

void MainWindow::showSettings() {
    if (settings_ == nullptr)
        settings_ = new SettingsWindow(app_, sync_, *stateStore_, this);
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

Sidebar::Callbacks MainWindow::sidebarCallbacks() {
    return {[this](const DeviceFavorite& favorite) {
                leaveImport();
                openFavorite(favorite);
                pages_->currentWidget()->setFocus();
            },
            [this](const QString& path) {
                leaveImport();
                browser_.navigateTo(path);
                pages_->currentWidget()->setFocus();
            },
            [this] { openMedia(); },
            [this] { showApps(); },
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
    if (!event->spontaneous())
        app_.deviceManager().stopListening();
}

void MainWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        setUpIconTheme();
}

void MainWindow::connectSync() {
    syncDialogs_->setNotifier(app_.setup().notifier);
    browserView_->setShowSync([this](const QWidget& anchor) {
        std::optional<DeviceInfo> device;
        if (browser_.state() == BrowserState::ready && !isChoosingApp_)
            device = browser_.activeDevice();
        app_.syncManager().setBrowsingContext(device, chosenApp_, browser_.currentPath());
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
    const bool isCopying =
        !app_.copyQueue().summary().isIdle() || app_.promisedFiles().isBeingRead();
    if (isCopying || app_.syncManager().isRunning()) {
        QMessageBox question(QMessageBox::Question, tr("Quit Tessary"),
                             isCopying ? tr("Files are still being copied.")
                                       : tr("A sync is still running."),
                             QMessageBox::NoButton, this);
        question.setInformativeText(tr("Quitting cancels this. What has arrived whole stays."));
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

std::optional<DeviceInfo> MainWindow::attached(const DeviceInfo& device) const {
    // An iPhone has another handle at each plugging.
    for (const DeviceInfo& other : app_.deviceManager().devices())
        if (other.id() == device.id() ||
            (device.platform == DevicePlatform::iOS && other.udid == device.udid))
            return other;
    return std::nullopt;
}

std::optional<QString> MainWindow::chosenAppId() const {
    return chosenApp_ ? std::optional(chosenApp_->bundleIdentifier) : std::nullopt;
}

void MainWindow::openApp(const AppInfo& app, const QString& path) {
    connectApp(app, path);
    showPage();
    browserView_->currentListing().setFocus();
}

void MainWindow::connectApp(const AppInfo& app, const QString& path) {
    const auto device = apps_.device();
    if (!device)
        return;
    chosenApp_ = app;
    lastApps_.insert(device->udid, app);
    isChoosingApp_ = false;
    browser_.connect(device->udid, app.bundleIdentifier, app.displayName, *device, path);
}

/// Where it was left, when it is open.
void MainWindow::openMedia() {
    const auto device = chosenDevice();
    if (!device || device->platform != DevicePlatform::iOS)
        return;
    leaveImport();
    const auto& active = browser_.activeDevice();
    if (chosenApp_ && isMediaFolder(chosenApp_->bundleIdentifier) && active &&
        active->udid == device->udid && browser_.state() != BrowserState::deviceLost) {
        isChoosingApp_ = false;
        browser_.navigateTo(browser_.rootPath());
        showSidebar();
        showPage();
        browserView_->currentListing().setFocus();
        return;
    }
    apps_.setDevice(*device);
    openApp(mediaFolder(), QStringLiteral("/"));
}

void MainWindow::showImport() {
    const auto device = chosenDevice();
    if (!device)
        return;
    PhoneFileSystems& phones = app_.services().files();
    import_.open(device->platform == DevicePlatform::iOS ? phones.openMedia(*device)
                                                         : phones.open(*device),
                 *device);
    showPage();
    importView_->setFocus();
}

/// Another page is wanted. A copy goes on.
void MainWindow::leaveImport() {
    if (import_.state() != ImportViewModel::State::closed)
        import_.close();
}

bool MainWindow::isImporting() const {
    const auto device = chosenDevice();
    return import_.state() != ImportViewModel::State::closed && device &&
           device->udid == import_.device().udid;
}

void MainWindow::showApps() {
    const auto device = chosenDevice();
    if (!device || device->platform != DevicePlatform::iOS)
        return;
    leaveImport();
    isChoosingApp_ = true;
    lastApps_.remove(device->udid);
    apps_.setDevice(*device);
    showSidebar();
    showPage();
    appList_->setFocus();
}

void MainWindow::showSidebar() {
    const auto device = chosenDevice();
    FavoriteSource source;
    if (device && browser_.activeDevice() && browser_.activeDevice()->udid == device->udid) {
        source.files = browser_.files();
        source.appBundleId = chosenAppId();
        if (chosenApp_)
            source.appName = chosenApp_->displayName;
    }
    importAction_->setEnabled(
        device && (device->platform == DevicePlatform::iOS || device->isDataAccessible()));
    sidebar_->showDevice(device, source);
    sidebar_->showFolder(source.files && !isChoosingApp_ ? browser_.currentPath() : QString());
}

void MainWindow::openFavorite(const DeviceFavorite& favorite) {
    const auto device = chosenDevice();
    if (!device)
        return;
    if (!favorite.appBundleId) {
        browser_.navigateTo(favorite.path);
        return;
    }
    if (chosenAppId() == favorite.appBundleId && browser_.state() != BrowserState::deviceLost &&
        browser_.activeDevice() && browser_.activeDevice()->udid == device->udid) {
        isChoosingApp_ = false;
        browser_.navigateTo(favorite.path);
        showPage();
        return;
    }
    apps_.setDevice(*device);
    openApp({*favorite.appBundleId, favorite.appName.value_or(*favorite.appBundleId), true, false},
            favorite.path);
}

void MainWindow::deviceListChanged() {
    browser_.folders().keepOnly(app_.deviceManager().devices());
    const auto active = browser_.activeDevice();
    if (active) {
        const auto now = attached(*active);
        const bool isLost = browser_.state() == BrowserState::deviceLost;
        if (!now) {
            if (!isLost)
                browser_.loseDevice();
        } else {
            const bool wasLocked = !active->isDataAccessible();
            const bool hasOtherMode = active->protocolMode != now->protocolMode;
            const QString path = browser_.currentPath();
            browser_.updateDevice(*now);
            if (isLost && chosenApp_)
                browser_.connect(now->udid, chosenApp_->bundleIdentifier, chosenApp_->displayName,
                                 *now, path);
            else if (isLost)
                browser_.connectAndroid(*now, path);
            else if ((wasLocked || hasOtherMode) && now->isDataAccessible())
                browser_.reload();
        }
    }
    if (const auto listed = apps_.device()) {
        if (const auto now = attached(*listed))
            apps_.setDevice(*now);
        else
            apps_.clear();
    }
    // The first phone to come is the one that the user has just plugged in.
    QListView& list = sidebar_->deviceList();
    if (!list.currentIndex().isValid() && devices_.rowCount() > 0)
        list.setCurrentIndex(devices_.index(0));
    showSidebar();
    showPage();
    showBanner();
}

void MainWindow::chooseDevice(const QModelIndex& index) {
    const DeviceInfo* device = devices_.deviceAt(index);
    const auto& active = browser_.activeDevice();
    const bool isShown = device != nullptr && active && active->udid == device->udid &&
                         browser_.state() != BrowserState::deviceLost;
    isChoosingApp_ = false;
    wasChosenByPress_ = QApplication::mouseButtons().testFlag(Qt::LeftButton);
    if (device != nullptr && device->platform == DevicePlatform::iOS) {
        const auto last = lastApps_.constFind(device->udid);
        isChoosingApp_ = !isShown && last == lastApps_.constEnd();
        apps_.setDevice(*device);
        if (!isShown && !isChoosingApp_)
            connectApp(*last, {});
    } else if (device != nullptr && (!isShown || active->id() != device->id())) {
        chosenApp_.reset();
        browser_.connectAndroid(*device, {}); // where it was left
    }
    showSidebar();
    showPage();
    showBanner();
}

void MainWindow::showPage() {
    const auto& active = browser_.activeDevice();
    const bool isLost = browser_.state() == BrowserState::deviceLost;
    const bool isLocked =
        active && !isLost && active->isLocked && !app_.deviceManager().trouble(active->id());
    const bool isListEmpty = app_.deviceManager().devices().empty();
    const QWidget* before = pages_->currentWidget();
    if (isListEmpty && (!active || isLost)) {
        pages_->setCurrentWidget(welcome_);
    } else if (isImporting()) {
        pages_->setCurrentWidget(importView_);
    } else if (isChoosingApp_ && chosenDevice()) {
        pages_->setCurrentWidget(appList_);
    } else if (isLocked) {
        notice_->show(QStringLiteral("object-locked"), tr("This phone is locked"),
                      tr("It shows its files once you unlock it and choose “File transfer” in its "
                         "USB notification. This window follows by itself."));
        pages_->setCurrentWidget(notice_);
    } else if (const auto trouble = troubleInTheWay()) {
        const ErrorText words = errorText(trouble->error);
        notice_->show(QStringLiteral("dialog-warning"), words.what, words.advice,
                      trouble->isHeld() ? tr("Release the Phone") : QString(),
                      [this] { releaseDevice(); });
        pages_->setCurrentWidget(notice_);
    } else {
        pages_->setCurrentWidget(browserView_);
    }
    // The keys follow what is shown, unless they are at work elsewhere.
    const QWidget* focus = focusWidget();
    if (before != pages_->currentWidget() &&
        (focus == nullptr || !sidebar_->isAncestorOf(focus) || !wasFocused_)) {
        wasFocused_ = wasFocused_ || pages_->currentWidget() == browserView_;
        pages_->currentWidget()->setFocus();
    }
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

/// What keeps the files of the phone from being shown at all.
std::optional<DeviceTrouble> MainWindow::troubleInTheWay() const {
    const auto& active = browser_.activeDevice();
    return active && browser_.state() == BrowserState::failed
               ? app_.deviceManager().trouble(active->id())
               : std::nullopt;
}

void MainWindow::showBanner() {
    const auto shown = isChoosingApp_ ? chosenDevice() : browser_.activeDevice();
    // What keeps the apps from being listed stands where they would be.
    const auto trouble =
        shown && !isChoosingApp_ ? app_.deviceManager().trouble(shown->id()) : std::nullopt;
    BannerMessage message;
    message.kind = BannerMessage::Kind::warning;
    if (!isChoosingApp_ && troubleInTheWay()) {
        banner_->clear(); // the page says so
        return;
    }
    if (trouble) {
        const ErrorText words = errorText(trouble->error);
        message.text = words.what;
        message.advice = words.advice;
        message.canBeClosed = false;
        if (trouble->isHeld())
            message.actions.push_back({tr("Release the Phone"), [this] { releaseDevice(); }});
        banner_->show(message);
        return;
    }
    // A folder that could not be read says so where the files would be.
    const auto& problem = browser_.problem();
    if (!problem || browser_.state() != BrowserState::ready) {
        showNotice();
        return;
    }
    message.kind = BannerMessage::Kind::error;
    const ErrorText words = problemText(*problem);
    message.text = words.what;
    message.advice = words.advice;
    if (browser_.isProblemOfLoad())
        message.actions.push_back({tr("Retry"), [this] {
                                       browser_.dismissProblem();
                                       browser_.reload();
                                   }});
    banner_->show(message);
}

/// What is no matter of the phone has the banner while nothing else needs it.
void MainWindow::showNotice() {
    const bool isReadable = browser_.files() && browser_.state() == BrowserState::ready;
    if (const auto notice = notices_.current(isReadable))
        banner_->show(*notice);
    else
        banner_->clear();
}

void MainWindow::releaseDevice() {
    runInBackground(
        this, [&services = app_.services()] { services.competingPrograms().end(); },
        [this](BackgroundResult<void>) { app_.deviceManager().refreshDeviceList(true); });
}

} // namespace tessary
