#include "views/tabs/PhoneTab.h"

#include "app/LanguageManager.h"
#include "app/texts/DisplayNames.h"
#include "app/texts/ErrorText.h"
#include "app/texts/SharedWords.h"
#include "base/text/Printable.h"
#include "views/browser/AppListView.h"
#include "views/common/Layouts.h"
#include "views/common/PageStack.h"
#include "views/common/PlaceholderView.h"
#include "views/common/PlainText.h"
#include "views/import/ImportView.h"
#include "views/phone/PhonePage.h"
#include "views/settings/FileSettings.h"
#include "views/sidebar/DeviceListModel.h"
#include "views/tabs/BrowserSetups.h"
#include "views/tabs/WelcomeView.h"
#include "views/tabs/WindowBanner.h"

#include <QVBoxLayout>

#include <algorithm>
#include <initializer_list>
#include <utility>

namespace tessary {

namespace {

bool waitedForUser(const std::optional<BrowserProblem>& problem) {
    return problem && std::ranges::any_of(problem->failures, [](const auto& failure) {
               return failure.error.is(PhoneError::locked) ||
                      failure.error.is(PhoneError::notTrusted);
           });
}

/// The other pages need no room.
class Pages : public PageStack {
public:
    [[nodiscard]] QSize minimumSizeHint() const override {
        const QWidget& page = *currentWidget();
        return page.minimumSizeHint().expandedTo(page.minimumSize());
    }
};

} // namespace

PhoneTab::PhoneTab(const Shared& shared)
    : shared_(shared),
      app_(shared.app),
      browser_(app_.copyQueue(), browserSetup(app_)),
      apps_([&services = app_.services()](const DeviceInfo& device, const std::stop_token& stop) {
          return services.apps(device, stop);
      }),
      import_(app_.copyQueue(), app_.setup().importLedgers),
      choice_({app_, browser_, apps_, import_}, [this] { return device(); }),
      view_(new BrowserView(browser_, shared.dialogs, shared.openLocalFile,
                            BrowserView::Surroundings{
                                favoriteCommands(), [this] { choice_.showApps(); }, shared.showSync,
                                shared.openFolder,
                                [&defaults = app_.defaults()] { return fileClickOf(defaults); }})),
      importView_(new ImportView({import_, app_.copyQueue(), app_.stagedFiles(), app_.defaults(),
                                  app_.setup().showInFolder})),
      phonePage_(makePhonePage()),
      appList_(makeAppList()),
      welcome_(new WelcomeView(app_.setup().startDemo)),
      notice_(new PlaceholderView),
      banner_(new WindowBanner({app_, browser_, shared_.notices, choice_})),
      pages_(makePages()) {
    // The banner comes from below: nothing moves away under the pointer.
    auto* column = makeColumn(*this);
    column->addWidget(pages_, 1);
    column->addWidget(banner_);
    connectBrowser();
    connectChoice();
    keepTranslated(this, [this] { show(); });
    makePlain(*this);
}

PhoneTab::~PhoneTab() {
    // The views show what the members below hold: they go first.
    browser_.disconnect(this);
    delete pages_;
    delete banner_;
}

AppListView* PhoneTab::makeAppList() {
    return new AppListView(
        apps_, [this](const AppInfo& info) { choice_.openApp(info, QStringLiteral("/")); },
        [this](const AppInfo& info) {
            if (const auto device = apps_.device())
                app_.phoneMounts().open(*device, info, {});
        },
        [this] { choice_.showPhone(); });
}

PageStack* PhoneTab::makePages() {
    auto* pages = new Pages;
    for (QWidget* page : std::initializer_list<QWidget*>{welcome_, phonePage_, notice_, appList_,
                                                         view_, importView_})
        pages->addWidget(page);
    return pages;
}

PhonePage* PhoneTab::makePhonePage() {
    return new PhonePage({app_.deviceManager(), shared_.sync,
                          [&files = app_.services().files()](const DeviceInfo& device) {
                              return device.platform == DevicePlatform::iOS
                                         ? files.openMedia(device)
                                         : files.open(device);
                          }},
                         {[this] { choice_.browseFiles(); },
                          [this](const QString& path) {
                              browser_.navigateTo(path);
                              focusPage();
                          },
                          [this] { choice_.showApps(); }, shared_.importPhotos,
                          [this] { shared_.notices.releaseDevice(*banner_); }});
}

void PhoneTab::connectBrowser() {
    connect(&app_.favoritesManager(), &FavoritesManager::favoritesChanged, view_,
            &BrowserView::updateActions);
    for (auto signal :
         {&FileBrowserViewModel::connectionChanged, &FileBrowserViewModel::pathChanged})
        connect(&browser_, signal, this, &PhoneTab::changed);
    connect(&browser_, &FileBrowserViewModel::atPhoneChanged, this, &PhoneTab::show);
    connect(&browser_, &FileBrowserViewModel::stateChanged, this, &PhoneTab::show);
    connect(&browser_, &FileBrowserViewModel::itemsDeleted, this, [this](const QStringList& paths) {
        const auto& device = browser_.activeDevice();
        for (const QString& path : paths)
            if (device)
                app_.favoritesManager().removeFavorites(browser_.files()->canonicalPath(path),
                                                        device->udid, choice_.appId());
    });
    SyncManager& syncs = app_.syncManager();
    connect(&syncs, &SyncManager::syncDidComplete, this, [this, &syncs](const QUuid& id) {
        browser_.folders().forgetAll();
        const SyncPair* pair = syncs.pair(id);
        const auto& device = browser_.activeDevice();
        if (pair != nullptr && device && device->udid == pair->deviceUDID &&
            browser_.state() != BrowserState::deviceLost)
            browser_.reload();
    });
    // One that failed has changed something, too.
    connect(&syncs, &SyncManager::idle, this, [this] { browser_.folders().forgetAll(); });
}

void PhoneTab::connectChoice() {
    connect(&choice_, &PhoneChoice::changed, this, &PhoneTab::show);
    connect(&choice_, &PhoneChoice::focusWanted, this, [this] {
        if (isVisible())
            focusPage();
    });
    connect(&import_, &ImportViewModel::stateChanged, this, [this] {
        if (choice_.isImporting() != (pages_->currentWidget() == importView_))
            show();
    });
    connect(&import_, &ImportViewModel::removalEnded, &shared_.notices,
            &GeneralNotices::tellRemoval);
    connect(&app_.deviceManager(), &DeviceManager::troubleChanged, this, &PhoneTab::troubleChanged);
    connect(&app_.deviceManager(), &DeviceManager::detailsSettled, this, &PhoneTab::awaitUser);
    retry_.setSingleShot(true);
    connect(&retry_, &QTimer::timeout, this, [this] {
        const auto& active = browser_.activeDevice();
        if (active && waitsForUser() && !app_.deviceManager().trouble(active->id()))
            readAgain(active->id());
    });
}

bool PhoneTab::waitsForUser() const {
    return waitedForUser(browser_.problem()) || waitedForUser(apps_.problem());
}

/// Nobody else may have met the phone while it was locked: it is asked again, less and less often.
/// In between the device manager can ask, which tells when there is no trouble any more.
void PhoneTab::awaitUser() {
    constexpr std::chrono::seconds longest(30);
    if (!waitsForUser()) {
        const bool isRead =
            browser_.state() == BrowserState::ready || apps_.state() == AppListState::ready;
        pause_ = isRead ? firstPause : pause_;
    } else if (!retry_.isActive()) {
        retry_.start(pause_);
        pause_ = std::min<std::chrono::milliseconds>(2 * pause_, longest);
    }
}

FavoriteCommands PhoneTab::favoriteCommands() {
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

std::optional<DeviceInfo> PhoneTab::device() const {
    const auto& all = app_.deviceManager().devices();
    const auto found = std::ranges::find(all, udid_, &DeviceInfo::udid);
    return found == all.end() ? std::nullopt : std::optional(*found);
}

void PhoneTab::choose(const DeviceInfo* device) {
    udid_ = device == nullptr ? QString() : device->udid;
    pause_ = firstPause;
    choice_.choose(device);
    if (awaited_ && awaited_->udid == udid_)
        goToAwaited();
}

std::optional<TabPlace> PhoneTab::place() const {
    if (awaited_ && udid_.isEmpty())
        return awaited_;
    const auto& active = browser_.activeDevice();
    if (!active)
        return std::nullopt;
    if (choice_.isAtPhone())
        return TabPlace{active->udid, std::nullopt, {}};
    return TabPlace{active->udid, choice_.app(), browser_.currentPath()};
}

void PhoneTab::open(const TabPlace& place) {
    constexpr std::chrono::seconds start(10);
    if (place.udid.isEmpty())
        return;
    awaited_ = place;
    isStarting_.setRemainingTime(start);
    lookForAwaited();
    Q_EMIT changed();
}

void PhoneTab::lookForAwaited() {
    const auto& all = app_.deviceManager().devices();
    const auto found = std::ranges::find(all, awaited_->udid, &DeviceInfo::udid);
    if (found != all.end())
        choose(&*found);
}

/// The phone is chosen.
void PhoneTab::goToAwaited() {
    const TabPlace place = *std::exchange(awaited_, std::nullopt);
    if (place.path.isEmpty())
        return;
    if (place.app)
        choice_.openApp(*place.app, place.path);
    else
        browser_.navigateTo(place.path);
}

FavoriteSource PhoneTab::favoriteSource() const {
    const auto shown = device();
    const auto& active = browser_.activeDevice();
    if (!shown || !active || active->udid != shown->udid)
        return {};
    FavoriteSource source{browser_.files(), choice_.appId(), {}};
    if (choice_.app())
        source.appName = choice_.app()->displayName;
    return source;
}

std::optional<QSet<QString>> PhoneTab::knownFolders() {
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

QString PhoneTab::title() const {
    const auto there = device();
    const auto& shown = there ? there : browser_.activeDevice(); // it may be away
    if (!shown)
        return awaited_ && !awaited_->path.isEmpty()
                   ? printable(awaited_->path.section(QLatin1Char('/'), -1))
                   : QStringLiteral("Tessary");
    if (choice_.isImporting())
        return tr("Import Photos");
    if (choice_.isChoosingApp())
        return words::apps();
    const auto& path = browser_.breadcrumbs();
    if (choice_.isAtPhone() || path.empty())
        return deviceTitle(*shown);
    return printable(path.size() == 1 ? placeDisplayName(path.front().name) : path.back().name);
}

bool PhoneTab::isChanging() const {
    return browser_.isEditing() || import_.isRemoving();
}

bool PhoneTab::showsFolder() const {
    return pages_->currentWidget() == view_ && browser_.state() == BrowserState::ready;
}

void PhoneTab::focusPage() {
    pages_->currentWidget()->setFocus();
}

void PhoneTab::follow() {
    // Another phone that came before it was shown meanwhile.
    if (awaited_ && (udid_.isEmpty() || (!isStarting_.hasExpired() && choice_.isAtPhone())))
        lookForAwaited();
    choice_.follow();
    show();
}

void PhoneTab::troubleChanged(const QString& deviceId) {
    if (app_.deviceManager().trouble(deviceId)) {
        show();
        return;
    }
    readAgain(deviceId); // it was unlocked, or trusts this computer now
    show();
}

void PhoneTab::readAgain(const QString& deviceId) {
    const auto listed = apps_.device();
    if (listed && listed->id() == deviceId && apps_.state() == AppListState::failed)
        apps_.reload();
    const auto& active = browser_.activeDevice();
    if (active && active->id() == deviceId && browser_.state() == BrowserState::failed)
        browser_.reload();
}

/// Shows what is meant now.
void PhoneTab::show() {
    phonePage_->showDevice(device());
    showPage();
    banner_->update();
    Q_EMIT changed();
}

QWidget* PhoneTab::wantedPage() {
    const auto& active = browser_.activeDevice();
    const bool isLost = browser_.state() == BrowserState::deviceLost;
    if (app_.deviceManager().devices().empty() && (!active || isLost))
        return welcome_;
    if (choice_.isImporting())
        return importView_;
    if (choice_.isChoosingApp() && choice_.device())
        return appList_;
    if (choice_.isAtPhone() && !isLost)
        return phonePage_;
    if (active && !isLost && active->isLocked && !app_.deviceManager().trouble(active->id())) {
        notice_->show(QStringLiteral("object-locked"), tr("This phone is locked"),
                      tr("It shows its files once you unlock it and choose “File transfer” in its "
                         "USB notification. This window follows by itself."));
        return notice_;
    }
    if (const auto trouble = banner_->troubleInTheWay()) {
        const ErrorText words = errorText(trouble->error);
        notice_->show(QStringLiteral("dialog-warning"), words.what, words.advice,
                      trouble->isHeld() ? tr("Release the Phone") : QString(),
                      [this] { shared_.notices.releaseDevice(*banner_); });
        notice_->setDetails(words.details);
        return notice_;
    }
    return view_;
}

/// The keys go along, unless they are at work elsewhere and were with the files before.
void PhoneTab::showPage() {
    const QWidget* before = pages_->currentWidget();
    pages_->setCurrentWidget(wantedPage());
    pages_->updateGeometry();
    if (before == pages_->currentWidget())
        return;
    const QWidget* focus = window()->focusWidget();
    if (focus != nullptr && shared_.keepsKeys(*focus) && wereFocused_)
        return;
    wereFocused_ = wereFocused_ || pages_->currentWidget() == view_;
    pages_->currentWidget()->setFocus();
}

} // namespace tessary
