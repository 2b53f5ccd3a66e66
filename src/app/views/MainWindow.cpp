#include "app/views/MainWindow.h"

#include "app/Translations.h"
#include "app/views/Icons.h"
#include "app/views/PlaceholderView.h"
#include "app/views/StatusBanner.h"
#include "app/views/TransferPanel.h"
#include "app/views/WelcomeView.h"
#include "core/Background.h"
#include "core/Printable.h"
#include "files/AndroidFileAccess.h"

#include <QApplication>
#include <QHideEvent>
#include <QListView>
#include <QMenuBar>
#include <QShowEvent>
#include <QSplitter>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace tessary {

namespace {

BrowserSetup browserSetup(TessaryApp& app) {
    BrowserSetup setup;
    setup.openAndroid = [&app](const DeviceInfo& device) {
        return std::make_shared<AndroidFileAccess>(app.files(), device);
    };
    return setup;
}

} // namespace

MainWindow::MainWindow(TessaryApp& app, BrowserView::Dialogs dialogs, QWidget* parent)
    : QMainWindow(parent),
      app_(app),
      transfers_(app.transferEngine()),
      browser_(transfers_, browserSetup(app)),
      devices_(app.deviceManager()),
      sidebar_(new Sidebar(devices_, app.favoritesManager(), sidebarWishes())),
      banner_(new StatusBanner),
      pages_(new QStackedWidget),
      welcome_(new WelcomeView([&app] { app.startDemo(); })),
      notice_(new PlaceholderView),
      browserView_(new BrowserView(browser_, std::move(dialogs))),
      transferPanel_(new TransferPanel(transfers_)) {
    setWindowTitle(app.isDemo() ? tessary::tr("Tessary: Virtual Phones")
                                : QStringLiteral("Tessary"));
    setWindowIcon(icon("smartphone"));
    resize(1180, 740);
    setMinimumSize(760, 460);

    for (QWidget* page : {static_cast<QWidget*>(welcome_), static_cast<QWidget*>(notice_),
                          static_cast<QWidget*>(browserView_)})
        pages_->addWidget(page);
    auto* right = new QSplitter(Qt::Vertical);
    right->addWidget(pages_);
    right->addWidget(transferPanel_);
    right->setStretchFactor(0, 1);
    right->setSizes({510, 200});
    right->setChildrenCollapsible(false);
    right->setHandleWidth(1);
    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(banner_);
    column->addWidget(right, 1);

    auto* split = new QSplitter(Qt::Horizontal);
    split->addWidget(sidebar_);
    split->addWidget(content);
    split->setStretchFactor(1, 1);
    split->setSizes({250, 930});
    split->setChildrenCollapsible(false);
    split->setHandleWidth(1);
    setCentralWidget(split);
    makeMenus();

    connect(sidebar_->deviceList().selectionModel(), &QItemSelectionModel::currentChanged, this,
            &MainWindow::chooseDevice);
    browserView_->setFavorites(
        {[this](const QString& path) {
             const auto& device = browser_.activeDevice();
             return device && app_.favoritesManager().isFavorite(device->udid, path, std::nullopt);
         },
         [this](const QString& name, const QString& path) {
             if (const auto& device = browser_.activeDevice())
                 app_.favoritesManager().toggleFavorite(device->udid, name, path);
         }});
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
                                                        device->udid, std::nullopt);
    });
    connect(&app.deviceManager(), &DeviceManager::devicesChanged, this,
            &MainWindow::deviceListChanged);
    connect(&app.deviceManager(), &DeviceManager::troubleChanged, this, [this] {
        showPage();
        showBanner();
    });
    connect(&browser_, &FileBrowserViewModel::errorChanged, this, &MainWindow::showBanner);
    connect(&browser_, &FileBrowserViewModel::stateChanged, this, &MainWindow::showBanner);
    showPage();
}

MainWindow::~MainWindow() {
    // The views show what the members below hold: they go first.
    hide();
    delete takeCentralWidget();
}

Sidebar::Wishes MainWindow::sidebarWishes() {
    return {[this](const DeviceFavorite& favorite) { openFavorite(favorite); },
            [this](const QString& path) { browser_.navigateTo(path); },
            [this](ProtocolMode mode) {
                if (const auto& device = browser_.activeDevice())
                    app_.deviceManager().chooseProtocolMode(device->udid, mode);
            }};
}

void MainWindow::makeMenus() {
    const BrowserView::Actions& actions = browserView_->actions();
    QMenu* file = menuBar()->addMenu(tessary::tr("File"));
    for (QAction* action : {actions.newFolder, actions.open, actions.download, actions.uploadFiles,
                            actions.uploadFolder})
        file->addAction(action);
    file->addSeparator();
    QAction* quit =
        file->addAction(tessary::tr("Quit Tessary"), this, [] { QApplication::closeAllWindows(); });
    quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    quit->setMenuRole(QAction::QuitRole);

    QMenu* edit = menuBar()->addMenu(tessary::tr("Edit"));
    for (QAction* action : {actions.rename, actions.remove, actions.selectAll, actions.find})
        edit->addAction(action);

    QMenu* view = menuBar()->addMenu(tessary::tr("View"));
    for (QAction* action : {actions.asList, actions.asGrid})
        view->addAction(action);
    view->addSeparator();
    view->addAction(actions.reload);

    QMenu* go = menuBar()->addMenu(tessary::tr("Go"));
    for (QAction* action : {actions.back, actions.forward, actions.up})
        go->addAction(action);
    go->addSeparator();
    go->addAction(actions.favorite);
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
    if (event->type() == QEvent::ApplicationPaletteChange)
        setUpIconTheme();
}

void MainWindow::deviceListChanged() {
    const auto& active = browser_.activeDevice();
    if (active) {
        if (const auto now = app_.deviceManager().device(active->id())) {
            const bool wasLocked = !active->isDataAccessible();
            const bool isBack = browser_.state() == BrowserState::deviceLost;
            const QString path = browser_.currentPath();
            browser_.updateDevice(*now);
            if (isBack)
                browser_.connectAndroid(*now, path);
            else if (wasLocked && now->isDataAccessible())
                browser_.reload();
        } else if (browser_.state() != BrowserState::deviceLost) {
            browser_.loseDevice();
        }
    }
    // The first phone to come is the one that the user has just plugged in.
    QListView& list = sidebar_->deviceList();
    if (!list.currentIndex().isValid() && devices_.rowCount() > 0)
        list.setCurrentIndex(devices_.index(0));
    showSidebar();
    showPage();
    showBanner();
}

void MainWindow::showSidebar() {
    FavoriteSource source;
    source.files = browser_.files();
    const bool isLost = browser_.state() == BrowserState::deviceLost;
    sidebar_->showDevice(isLost ? std::nullopt : browser_.activeDevice(), source);
    sidebar_->showFolder(browser_.currentPath());
}

void MainWindow::openFavorite(const DeviceFavorite& favorite) {
    browser_.navigateTo(favorite.path);
}

void MainWindow::chooseDevice(const QModelIndex& index) {
    const DeviceInfo* device = devices_.deviceAt(index);
    const auto& active = browser_.activeDevice();
    if (device != nullptr &&
        (!active || active->id() != device->id() || browser_.state() == BrowserState::deviceLost))
        browser_.connectAndroid(*device, QStringLiteral("/"));
    showPage();
    showBanner();
}

void MainWindow::showPage() {
    const auto& active = browser_.activeDevice();
    const bool isLocked = active && browser_.state() != BrowserState::deviceLost &&
                          active->isLocked && !app_.deviceManager().trouble(active->id());
    const bool isListEmpty = app_.deviceManager().devices().empty();
    if (isListEmpty && (!active || browser_.state() == BrowserState::deviceLost)) {
        pages_->setCurrentWidget(welcome_);
    } else if (isLocked) {
        notice_->show(
            QStringLiteral("object-locked"), tessary::tr("This phone is locked"),
            tessary::tr("It shows its files once you unlock it and choose “File transfer” in its "
                        "USB notification. This window follows by itself."));
        pages_->setCurrentWidget(notice_);
    } else {
        pages_->setCurrentWidget(browserView_);
    }
}

void MainWindow::showBanner() {
    const auto& active = browser_.activeDevice();
    const auto trouble = active ? app_.deviceManager().trouble(active->id()) : std::nullopt;
    BannerMessage message;
    message.kind = BannerMessage::Kind::warning;
    if (trouble) {
        message.text = tessary::tr(printable(trouble->message));
        message.advice = tessary::tr(trouble->advice);
        message.canBeClosed = false;
        if (trouble->kind == DeviceTrouble::Kind::heldByProgram)
            message.actions.push_back(
                {tessary::tr("Release the Phone"), [this] { releaseDevice(); }});
        banner_->show(message);
        return;
    }
    // A folder that could not be read says so where the files would be.
    const auto& error = browser_.error();
    if (!error || browser_.state() != BrowserState::ready) {
        banner_->clear();
        return;
    }
    message.kind = BannerMessage::Kind::error;
    message.text = printable(error->message);
    message.advice = tessary::tr(error->advice);
    message.actions.push_back({tessary::tr("browser.retry"), [this] {
                                   browser_.dismissError();
                                   browser_.reload();
                               }});
    banner_->show(message);
}

void MainWindow::releaseDevice() {
    runInBackground(
        this, [&files = app_.files()] { files.killConflictingAgents(); },
        [this](BackgroundResult<void>) { app_.deviceManager().refreshDeviceList(true); });
}

} // namespace tessary
