#include "tour/TourDevices.h"

#include "support/CopyNow.h"
#include <QAction>
#include <QTemporaryDir>

namespace tessary {

void tourWelcome(TourStage& stage) {
    MainWindow& window = stage.window();
    TourPhones& phones = stage.phones();
    stage.shoot(QStringLiteral("welcome"));
    phones.plugInAndroid();
    stage.waitFor("the phone's storage", [&] {
        const auto& device = window.browser().activeDevice();
        return device && device->isDataAccessible() && !window.browser().isLoading();
    });
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

void tourIPhone(TourStage& stage) {
    MainWindow& window = stage.window();
    TourPhones& phones = stage.phones();
    FileBrowserViewModel& browser = window.browser();
    AppListViewModel& apps = window.apps();
    phones.setTrusted(false);
    phones.plugInIPhone();
    stage.waitFor("the untrusted iPhone", [&] { return apps.state() == AppListState::failed; });
    stage.shoot(QStringLiteral("iphone-untrusted"));
    phones.setTrusted(true);
    apps.reload();
    stage.waitFor("the apps", [&] {
        const auto& device = apps.device();
        return apps.state() == AppListState::ready && device && device->totalStorageBytes;
    });
    stage.shoot(QStringLiteral("iphone-apps"));
    window.openApp(apps.apps().back(), QStringLiteral("/"));
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
