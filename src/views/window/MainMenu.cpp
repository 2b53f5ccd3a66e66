#include "views/window/MainMenu.h"

#include "app/LanguageManager.h"
#include "app/Translations.h"
#include "views/common/Icons.h"

#include <QMenu>
#include <QMenuBar>

#include <initializer_list>

namespace tessary {

namespace {

/// A menu of commands; a null one stands for a line between groups.
QMenu* addMenu(QMenuBar& bar, const char* key, std::initializer_list<QAction*> actions) {
    QMenu* menu = bar.addMenu(QString());
    keepTranslated(menu, [menu, key] { menu->setTitle(tessary::tr(key)); });
    for (QAction* action : actions) {
        if (action == nullptr)
            menu->addSeparator();
        else
            menu->addAction(action);
    }
    return menu;
}

} // namespace

void makeMainMenus(QMenuBar& bar, const BrowserActions& actions, const MainMenuWishes& wishes) {
    const auto& a = actions;
    auto* settings = new QAction(icon("configure"), QString(), &bar);
    settings->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Comma));
    settings->setMenuRole(QAction::PreferencesRole);
    QObject::connect(settings, &QAction::triggered, &bar, wishes.showSettings);
    auto* wireless = new QAction(icon("network-wireless"), QString(), &bar);
    QObject::connect(wireless, &QAction::triggered, &bar, wishes.showWireless);
    auto* quit = new QAction(icon("application-exit"), QString(), &bar);
    quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    quit->setMenuRole(QAction::QuitRole);
    QObject::connect(quit, &QAction::triggered, &bar, wishes.quit);
    keepTranslated(settings, [settings, wireless, quit] {
        settings->setText(tessary::tr("settings.title"));
        wireless->setText(tessary::tr("Wireless Devices…"));
        quit->setText(tessary::tr("Quit Tessary"));
    });

    addMenu(bar, "File",
            {a.newFolder, a.open, a.download, a.uploadFiles, a.uploadFolder, a.sync, nullptr,
             a.quickLook, a.properties, nullptr, settings, nullptr, quit});
    addMenu(bar, "Edit", {a.rename, a.remove, a.selectAll, a.find});
    addMenu(bar, "View", {a.asList, a.asGrid, nullptr, a.reload});
    addMenu(bar, "Go",
            {a.back, a.forward, a.up, a.goTo, a.apps, nullptr, a.favorite, nullptr, wireless});
}

} // namespace tessary
