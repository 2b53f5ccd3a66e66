#include "app/LanguageManager.h"
#include "browser/storage/StorageUses.h"
#include "support/CopyNow.h"
#include "tour/Tour.h"

#include <QAction>
#include <QTemporaryDir>

namespace tessary {

using namespace Qt::StringLiterals;

namespace {

/// Until the phone that is shown can be read.
void waitForPhone(TourStage& stage) {
    stage.waitFor("the phone's storage", [&] {
        const auto& device = stage.browser().activeDevice();
        return device && device->isDataAccessible() && !stage.browser().isLoading();
    });
}

} // namespace

void tourWelcome(TourStage& stage) {
    stage.shoot(u"welcome"_s);
    stage.phones().plugIn(stage.phones().android());
    waitForPhone(stage);
    const auto& uses = *stage.window().findChild<StorageUses*>();
    stage.shoot(u"phone"_s);
    stage.waitFor("what fills the phone", [&] { return !uses.isLooking(); });
    stage.shoot(u"phone-known"_s);
    LanguageManager::shared().setSelectedLanguage(AppLanguage::de);
    stage.shootSmall(u"phone-small-de"_s);
    LanguageManager::shared().setSelectedLanguage(AppLanguage::en);
    stage.window().choice().browseFiles();
}

void tourLosses(TourStage& stage) {
    MainWindow& window = stage.window();
    FaultyAndroid& phone = stage.phones().android();
    phone.setLocked(true);
    stage.waitFor("the locked phone", [&] {
        const auto& device = stage.browser().activeDevice();
        return device && device->isLocked;
    });
    stage.shoot(u"locked"_s);
    window.choice().showPhone();
    stage.shoot(u"phone-locked"_s);
    stage.browser().goBack();
    phone.setLocked(false);
    waitForPhone(stage);
    phone.unplug();
    stage.waitFor("the loss of the phone",
                  [&] { return stage.browser().state() == BrowserState::deviceLost; });
    stage.shoot(u"phone-gone"_s);

    SyncManager& sync = window.sync().manager();
    const QUuid pair = sync.syncPairs().front().id;
    window.sync().run(pair);
    stage.waitFor("the failed sync",
                  [&] { return sync.pair(pair)->status.kind == SyncStatus::Kind::error; });
    stage.actions().sync->trigger();
    stage.shoot(u"sync-error"_s);
    window.findChild<QWidget*>(u"syncPanel"_s)->hide();
    sync.removeSyncPair(pair);
}

namespace {

/// Photos as files, and imported.
void tourImport(TourStage& stage) {
    MainWindow& window = stage.window();
    FileBrowserViewModel& browser = stage.browser();
    window.choice().openApp(mediaFolder(), u"/DCIM/100APPLE"_s);
    stage.waitFor("the photos", [&] { return !browser.isLoading() && browser.items().size() > 9; });
    stage.shoot(u"iphone-photos"_s);
    browser.setViewMode(ViewMode::grid);
    stage.shootPictures(u"iphone-photos-by-day"_s, stage.listing(), stage.listing());
    browser.setViewMode(ViewMode::list);
    ImportViewModel& import = window.import();
    using State = ImportViewModel::State;
    window.findChild<QAction*>(u"importAction"_s)->trigger();
    stage.waitFor("what is new", [&] { return import.state() == State::choosing; });
    import.choose({import.photos()[2].id(), import.photos()[3].id()}, false);
    const auto& page = *window.findChild<QWidget*>(u"importView"_s);
    stage.shootPictures(u"import-new"_s, *page.findChild<QAbstractItemView*>(), page);
    import.start(stage.local().filePath(u"Pictures"_s), true);
    stage.waitFor("the import", [&] { return import.state() == State::copied; });
    stage.shoot(u"import-done"_s);
    import.removeFromPhone();
    stage.waitFor("the removal", [&] { return import.state() == State::removed; });
    stage.shoot(u"import-removed"_s);
    import.close();
}

} // namespace

void tourIPhone(TourStage& stage) {
    MainWindow& window = stage.window();
    FaultyIPhone& phone = stage.phones().iPhone();
    FileBrowserViewModel& browser = stage.browser();
    AppListViewModel& apps = window.apps();
    phone.setTrust(VirtualTrust::asking);
    phone.plugInto(stage.phones().demo().iPhones()->mux());
    const auto* trouble = window.findChild<QWidget*>(u"phoneTrouble"_s);
    stage.waitFor("the untrusted iPhone",
                  [trouble] { return trouble != nullptr && trouble->isVisible(); });
    stage.shoot(u"iphone-untrusted"_s);
    phone.setTrust(VirtualTrust::trusted);
    apps.reload();
    const auto hasSpace = [&] {
        return apps.device() && apps.device()->totalStorageBytes && !browser.isLoading();
    };
    stage.waitFor("the iPhone's storage", hasSpace);
    stage.shoot(u"iphone"_s);
    window.choice().showApps();
    stage.waitFor("the apps", [&] { return apps.state() == AppListState::ready && hasSpace(); });
    stage.shoot(u"iphone-apps"_s);
    tourImport(stage);
    window.choice().openApp(apps.apps().back(), u"/"_s);
    stage.waitForFolder();
    browser.enterFolder(browser.items().front().id());
    stage.waitForFolder();
    stage.shoot(u"iphone-documents"_s);
    const QTemporaryDir source;
    stage.phones().setSpeed(TourStage::slowSpeed);
    uploadNow(browser, {TourStage::writeSample(source.filePath(u"Talk.mp4"_s))});
    stage.waitForCopy();
    stage.shoot(u"iphone-transfer"_s);
    stage.endCopies();
    window.copyQueue().clearFinished();
    phone.unplug();
}

} // namespace tessary
