#include "tour/TourDevices.h"

#include "app/LanguageManager.h"
#include "browser/storage/StorageUses.h"
#include "support/CopyNow.h"
#include "views/listing/ThumbnailStore.h"

#include <QAbstractItemView>
#include <QAction>
#include <QTemporaryDir>

namespace tessary {

namespace {

/// The phone's own page, once it is known what fills the phone.
void tourPhonePage(TourStage& stage) {
    MainWindow& window = stage.window();
    const auto& uses = *window.findChild<StorageUses*>();
    stage.shoot(QStringLiteral("phone"));
    stage.waitFor("what fills the phone", [&] { return !uses.isLooking(); });
    stage.shoot(QStringLiteral("phone-known"));
    const QSize size = window.size();
    LanguageManager::shared().setSelectedLanguage(AppLanguage::de);
    window.resize(800, 500);
    stage.shoot(QStringLiteral("phone-small-de"));
    LanguageManager::shared().setSelectedLanguage(AppLanguage::en);
    window.resize(size);
}

} // namespace

void tourWelcome(TourStage& stage) {
    MainWindow& window = stage.window();
    TourPhones& phones = stage.phones();
    stage.shoot(QStringLiteral("welcome"));
    phones.plugInAndroid();
    stage.waitFor("the phone's storage", [&] {
        const auto& device = window.browser().activeDevice();
        return device && device->isDataAccessible() && !window.browser().isLoading();
    });
    tourPhonePage(stage);
    window.choice().browseFiles();
}

void tourLosses(TourStage& stage) {
    MainWindow& window = stage.window();
    TourPhones& phones = stage.phones();
    phones.setLocked(true);
    stage.waitFor("the locked phone", [&] {
        const auto& device = window.browser().activeDevice();
        return device && device->isLocked;
    });
    stage.shoot(QStringLiteral("locked"));
    window.choice().showPhone();
    stage.shoot(QStringLiteral("phone-locked"));
    window.browser().goBack();
    phones.setLocked(false);
    stage.waitFor("the unlocked phone", [&] {
        const auto& device = window.browser().activeDevice();
        return device && device->isDataAccessible() && !window.browser().isLoading();
    });
    phones.unplugAndroid();
    stage.waitFor("the loss of the phone",
                  [&] { return window.browser().state() == BrowserState::deviceLost; });
    stage.shoot(QStringLiteral("phone-gone"));

    SyncManager& sync = window.sync().manager();
    const QUuid pair = sync.syncPairs().front().id;
    window.sync().run(pair);
    stage.waitFor("the failed sync",
                  [&] { return sync.pair(pair)->status.kind == SyncStatus::Kind::error; });
    window.browserView().actions().sync->trigger();
    stage.shoot(QStringLiteral("sync-error"));
    window.findChild<QWidget*>(QStringLiteral("syncPanel"))->hide();
    sync.removeSyncPair(pair);
}

namespace {

/// Photos as files, and imported.
void tourImport(TourStage& stage) {
    MainWindow& window = stage.window();
    FileBrowserViewModel& browser = window.browser();
    window.choice().openApp(mediaFolder(), QStringLiteral("/DCIM/100APPLE"));
    stage.waitFor("the photos", [&] { return !browser.isLoading() && browser.items().size() > 9; });
    stage.shoot(QStringLiteral("iphone-photos"));
    browser.setViewMode(ViewMode::grid);
    auto* grid = window.browserView().currentListing().findChild<ThumbnailStore*>();
    window.browserView().currentListing().viewport()->repaint(); // what is painted is asked for
    stage.waitFor("the days' thumbnails", [grid] { return grid->isIdle(); });
    stage.shoot(QStringLiteral("iphone-photos-by-day"));
    browser.setViewMode(ViewMode::list);
    ImportViewModel& import = window.import();
    using State = ImportViewModel::State;
    window.findChild<QAction*>(QStringLiteral("importAction"))->trigger();
    stage.waitFor("what is new", [&] { return import.state() == State::choosing; });
    import.choose({import.photos()[2].id(), import.photos()[3].id()}, false);
    const auto& page = *window.findChild<QWidget*>(QStringLiteral("importView"));
    page.findChild<QAbstractItemView*>()->viewport()->repaint(); // what is painted is asked for
    const auto& thumbnails = *page.findChild<ThumbnailStore*>();
    stage.waitFor("the thumbnails", [&] { return thumbnails.isIdle(); });
    stage.shoot(QStringLiteral("import-new"));
    import.start(stage.local().filePath(QStringLiteral("Pictures")), true);
    stage.waitFor("the import", [&] { return import.state() == State::copied; });
    stage.shoot(QStringLiteral("import-done"));
    import.removeFromPhone();
    stage.waitFor("the removal", [&] { return import.state() == State::removed; });
    stage.shoot(QStringLiteral("import-removed"));
    import.close();
}

} // namespace

void tourIPhone(TourStage& stage) {
    MainWindow& window = stage.window();
    TourPhones& phones = stage.phones();
    FileBrowserViewModel& browser = window.browser();
    AppListViewModel& apps = window.apps();
    phones.setTrusted(false);
    phones.plugInIPhone();
    const auto* trouble = window.findChild<QWidget*>(QStringLiteral("phoneTrouble"));
    stage.waitFor("the untrusted iPhone",
                  [trouble] { return trouble != nullptr && trouble->isVisible(); });
    stage.shoot(QStringLiteral("iphone-untrusted"));
    phones.setTrusted(true);
    apps.reload();
    stage.waitFor("the iPhone's storage", [&] {
        const auto& device = apps.device();
        return device && device->totalStorageBytes && !window.browser().isLoading();
    });
    stage.shoot(QStringLiteral("iphone"));
    window.choice().showApps();
    stage.waitFor("the apps", [&] {
        const auto& device = apps.device();
        return apps.state() == AppListState::ready && device && device->totalStorageBytes;
    });
    stage.shoot(QStringLiteral("iphone-apps"));
    tourImport(stage);
    window.choice().openApp(apps.apps().back(), QStringLiteral("/"));
    stage.waitFor("the documents", [&] { return !browser.isLoading(); });
    browser.enterFolder(browser.items().front().id());
    stage.waitFor("a folder of documents", [&] { return !browser.isLoading(); });
    stage.shoot(QStringLiteral("iphone-documents"));
    const QTemporaryDir source;
    phones.setSpeed(TourStage::slowSpeed);
    uploadNow(browser, {TourStage::writeSample(source.filePath(QStringLiteral("Talk.mp4")))});
    stage.waitFor("a running transfer", [&] {
        const auto& jobs = window.copyQueue().jobs();
        return !jobs.empty() && jobs.back().fractionDone() > 0.2;
    });
    stage.shoot(QStringLiteral("iphone-transfer"));
    phones.setSpeed(0);
    stage.waitFor("the end of the transfer", [&] { return window.copyQueue().summary().isIdle(); });
    window.copyQueue().clearFinished();
    phones.unplugIPhone();
}

} // namespace tessary
