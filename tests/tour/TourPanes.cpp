#include "app/LanguageManager.h"
#include "tour/Tour.h"
#include "views/dialogs/HelpDialog.h"
#include "views/window/Panes.h"

#include <QAction>
#include <QDir>
#include <QMenu>
#include <QTabWidget>

namespace tessary {

using namespace Qt::StringLiterals;

void tourPanes(TourStage& stage) {
    MainWindow& window = stage.window();
    const QDir home(stage.local().path());
    for (const char* name : {"Letters", "Photos of the summer", "Taxes"})
        (void)home.mkpath(QString::fromLatin1(name));
    for (const char* name : {"Minutes.pdf", "Shopping.txt", "Song.mp3"})
        TourStage::write(home.filePath(QString::fromLatin1(name)), "a file of this computer");
    stage.open(u"/sdcard/Documents"_s);
    window.panes().split(home.path());
    auto& pane = *window.findChild<LocalPane*>(u"localPane"_s);
    stage.waitFor("the folder here", [&] {
        return window.panes().localFolder() == home.path() && !pane.browser().isLoading();
    });
    pane.browser().selection().select(home.filePath(u"Minutes.pdf"_s));
    stage.shoot(u"split"_s);
    stage.shootSmall(u"split-small"_s);

    pane.browser().selection().selectAll();
    pane.view().actions().cut->trigger();
    stage.shoot(u"cut"_s);
    window.panes().toggle().trigger(); // together again

    PhoneTab& music = window.openTab(u"/sdcard/Music"_s, true);
    stage.waitForFolder();
    window.openTab(u"/sdcard/DCIM/Camera"_s, false);
    stage.shoot(u"tabs"_s);
    window.closeTab(music);
    window.closeTab(window.tab());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // they are gone

    window.browserView().columnMenu().popup(window.mapToGlobal(QPoint(700, 120)));
    stage.shoot(u"columns"_s);
    window.browserView().columnMenu().close();

    for (const AppLanguage language : {AppLanguage::en, AppLanguage::de, AppLanguage::ja}) {
        LanguageManager::shared().setSelectedLanguage(language);
        HelpDialog help(*window.menuBar(), &window);
        help.show();
        auto* tabs = help.findChild<QTabWidget*>();
        for (int i = 0; i < tabs->count(); ++i) {
            tabs->setCurrentIndex(i);
            stage.shoot(u"help-"_s + rawValue(language));
        }
    }
    LanguageManager::shared().setSelectedLanguage(AppLanguage::en);
}

} // namespace tessary
