#include "tour/TourPanes.h"

#include "app/LanguageManager.h"
#include "views/dialogs/HelpDialog.h"
#include "views/window/Panes.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QMenu>
#include <QTabWidget>

namespace tessary {

namespace {

LocalPane& split(TourStage& stage) {
    stage.window().panes().split(stage.local().path());
    return *stage.window().findChild<LocalPane*>(QStringLiteral("localPane"));
}

} // namespace

void tourPanes(TourStage& stage) {
    MainWindow& window = stage.window();
    const QDir home(stage.local().path());
    for (const char* name : {"Letters", "Photos of the summer", "Taxes"})
        (void)home.mkpath(QString::fromLatin1(name));
    for (const char* name : {"Minutes.pdf", "Shopping.txt", "Song.mp3"}) {
        QFile file(home.filePath(QString::fromLatin1(name)));
        if (file.open(QIODevice::WriteOnly))
            file.write("a file of this computer");
    }
    stage.open(QStringLiteral("/sdcard/Documents"));
    LocalPane& pane = split(stage);
    stage.waitFor("the folder here", [&] {
        return window.panes().localFolder() == home.path() && !pane.browser().isLoading();
    });
    pane.browser().selection().select(home.filePath(QStringLiteral("Minutes.pdf")));
    stage.shoot(QStringLiteral("split"));
    const QSize size = window.size();
    window.resize(800, 500);
    stage.shoot(QStringLiteral("split-small"));
    window.resize(size);

    pane.browser().selection().selectAll();
    pane.view().actions().cut->trigger();
    stage.shoot(QStringLiteral("cut"));
    window.panes().toggle().trigger(); // together again

    PhoneTab& music = window.openTab(QStringLiteral("/sdcard/Music"), true);
    stage.waitFor("the second tab", [&] { return !window.browser().isLoading(); });
    window.openTab(QStringLiteral("/sdcard/DCIM/Camera"), false);
    stage.shoot(QStringLiteral("tabs"));
    window.closeTab(music);
    window.closeTab(window.tab());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // they are gone

    window.browserView().columnMenu().popup(window.mapToGlobal(QPoint(700, 120)));
    stage.shoot(QStringLiteral("columns"));
    window.browserView().columnMenu().close();

    for (const AppLanguage language : {AppLanguage::en, AppLanguage::de, AppLanguage::ja}) {
        LanguageManager::shared().setSelectedLanguage(language);
        auto* help = new HelpDialog(*window.menuBar(), &window);
        help->show();
        auto* tabs = help->findChild<QTabWidget*>();
        for (int i = 0; i < tabs->count(); ++i) {
            tabs->setCurrentIndex(i);
            stage.shoot(QStringLiteral("help-") + rawValue(language));
        }
        delete help;
    }
    LanguageManager::shared().setSelectedLanguage(AppLanguage::en);
}

} // namespace tessary
