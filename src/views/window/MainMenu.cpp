#include "views/window/MainMenu.h"

#include "app/LanguageManager.h"
#include "views/common/Icons.h"
#include "views/window/MenuMnemonics.h"

#include <QCoreApplication>
#include <QMenu>
#include <QMenuBar>

#include <initializer_list>

namespace tessary {

namespace {

/// The context of this file's texts.
class MainMenu {
    Q_DECLARE_TR_FUNCTIONS(MainMenu)
};

/// A menu of commands; a null one stands for a line between groups.
QMenu* addMenu(QMenuBar& bar, const char* title, std::initializer_list<QAction*> actions) {
    QMenu* menu = bar.addMenu(QString());
    keepTranslated(menu, [menu, title] { menu->setTitle(MainMenu::tr(title)); });
    for (QAction* action : actions) {
        if (action == nullptr)
            menu->addSeparator();
        else
            menu->addAction(action);
    }
    return menu;
}

} // namespace

void makeMainMenus(QMenuBar& bar, const BrowserActions& actions,
                   const MainMenuCallbacks& callbacks) {
    const auto& a = actions;
    auto* settings = new QAction(icon("configure"), QString(), &bar);
    settings->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Comma));
    settings->setMenuRole(QAction::PreferencesRole);
    QObject::connect(settings, &QAction::triggered, &bar, callbacks.showSettings);
    auto* wireless = new QAction(icon("network-wireless"), QString(), &bar);
    QObject::connect(wireless, &QAction::triggered, &bar, callbacks.showWireless);
    auto* history = new QAction(icon("view-history"), QString(), &bar);
    history->setObjectName(QStringLiteral("copyHistoryAction"));
    history->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_H));
    QObject::connect(history, &QAction::triggered, &bar, callbacks.showCopyHistory);
    auto* fullScreen = new QAction(icon("view-fullscreen"), QString(), &bar);
    fullScreen->setShortcut(QKeySequence(Qt::Key_F11));
    QObject::connect(fullScreen, &QAction::triggered, &bar, callbacks.toggleFullScreen);
    auto* quit = new QAction(icon("application-exit"), QString(), &bar);
    quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    quit->setMenuRole(QAction::QuitRole);
    QObject::connect(quit, &QAction::triggered, &bar, callbacks.quit);
    auto* newWindow = new QAction(icon("window-new"), QString(), &bar);
    newWindow->setObjectName(QStringLiteral("newWindowAction"));
    newWindow->setShortcut(QKeySequence::New);
    QObject::connect(newWindow, &QAction::triggered, &bar, callbacks.newWindow);
    auto* help = new QAction(icon("help-contents"), QString(), &bar);
    help->setShortcut(QKeySequence::HelpContents);
    QObject::connect(help, &QAction::triggered, &bar, callbacks.showHelp);
    keepTranslated(settings, [settings, wireless, history, fullScreen, quit, newWindow, help] {
        newWindow->setText(MainMenu::tr("New Window"));
        help->setText(MainMenu::tr("Help"));
        settings->setText(MainMenu::tr("Settings"));
        wireless->setText(MainMenu::tr("Wireless Devices…"));
        history->setText(MainMenu::tr("Copy History…"));
        fullScreen->setText(MainMenu::tr("Full Screen"));
        quit->setText(MainMenu::tr("Quit Tessary"));
    });

    addMenu(bar, QT_TRANSLATE_NOOP("MainMenu", "File"),
            {newWindow, nullptr, a.newFolder, a.open, a.download, a.uploadFiles, a.uploadFolder,
             a.sync, callbacks.importPhotos, nullptr, a.quickLook, a.properties, nullptr, settings,
             nullptr, quit});
    addMenu(bar, QT_TRANSLATE_NOOP("MainMenu", "Edit"),
            {a.undo, nullptr, a.cut, a.copy, a.paste, a.copyPath, nullptr, a.moveTo, a.copyTo,
             a.duplicate, nullptr, a.rename, a.remove, nullptr, a.selectAll, a.selectDay,
             a.invertSelection, a.find, a.search});
    addMenu(bar, QT_TRANSLATE_NOOP("MainMenu", "View"),
            {a.asList, a.asGrid, nullptr, a.zoomIn, a.zoomOut, a.zoomReset, nullptr, a.groupByDay,
             a.showHidden, callbacks.columns->menuAction(), callbacks.split, fullScreen, nullptr,
             a.reload});
    addMenu(
        bar, QT_TRANSLATE_NOOP("MainMenu", "Go"),
        {a.back, a.forward, a.up, a.goTo, a.apps, nullptr, a.favorite, nullptr, wireless, history});
    addMenu(bar, QT_TRANSLATE_NOOP("MainMenu", "Help"), {help})
        ->setObjectName(QStringLiteral("helpMenu"));
    new MenuMnemonics(bar);
}

} // namespace tessary
