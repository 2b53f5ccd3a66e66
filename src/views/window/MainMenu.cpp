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
    using Callback = std::function<void()> MainMenuCallbacks::*;
    const auto command = [&](const char* iconName, const char* text, QKeySequence key,
                             Callback run) {
        auto* action = new QAction(icon(iconName), QString(), &bar);
        action->setShortcut(key);
        QObject::connect(action, &QAction::triggered, &bar, callbacks.*run);
        keepTranslated(action, [action, text] { action->setText(MainMenu::tr(text)); });
        return action;
    };
    using Callbacks = MainMenuCallbacks;
    QAction* newWindow = command("window-new", QT_TRANSLATE_NOOP("MainMenu", "New Window"),
                                 QKeySequence::New, &Callbacks::newWindow);
    newWindow->setObjectName(QStringLiteral("newWindowAction"));
    QAction* newTab = command("tab-new", QT_TRANSLATE_NOOP("MainMenu", "New Tab"),
                              Qt::CTRL | Qt::Key_T, &Callbacks::newTab);
    QAction* closeTab = command("tab-close", QT_TRANSLATE_NOOP("MainMenu", "Close Tab"),
                                Qt::CTRL | Qt::Key_W, &Callbacks::closeTab);
    QAction* nextTab = command("go-next", QT_TRANSLATE_NOOP("MainMenu", "Next Tab"),
                               Qt::CTRL | Qt::Key_PageDown, &Callbacks::nextTab);
    QAction* previousTab = command("go-previous", QT_TRANSLATE_NOOP("MainMenu", "Previous Tab"),
                                   Qt::CTRL | Qt::Key_PageUp, &Callbacks::previousTab);
    nextTab->setShortcuts({Qt::CTRL | Qt::Key_PageDown, Qt::CTRL | Qt::Key_Tab});
    previousTab->setShortcuts({Qt::CTRL | Qt::Key_PageUp, Qt::CTRL | Qt::SHIFT | Qt::Key_Tab});
    QAction* settings = command("configure", QT_TRANSLATE_NOOP("MainMenu", "Settings"),
                                Qt::CTRL | Qt::Key_Comma, &Callbacks::showSettings);
    settings->setMenuRole(QAction::PreferencesRole);
    QAction* wireless =
        command("network-wireless", QT_TRANSLATE_NOOP("MainMenu", "Wireless Devices…"), {},
                &Callbacks::showWireless);
    QAction* history = command("view-history", QT_TRANSLATE_NOOP("MainMenu", "Copy History…"),
                               Qt::CTRL | Qt::SHIFT | Qt::Key_H, &Callbacks::showCopyHistory);
    history->setObjectName(QStringLiteral("copyHistoryAction"));
    QAction* fullScreen = command("view-fullscreen", QT_TRANSLATE_NOOP("MainMenu", "Full Screen"),
                                  Qt::Key_F11, &Callbacks::toggleFullScreen);
    QAction* quit = command("application-exit", QT_TRANSLATE_NOOP("MainMenu", "Quit Tessary"),
                            Qt::CTRL | Qt::Key_Q, &Callbacks::quit);
    quit->setMenuRole(QAction::QuitRole);
    QAction* help = command("help-contents", QT_TRANSLATE_NOOP("MainMenu", "Help"),
                            QKeySequence::HelpContents, &Callbacks::showHelp);

    addMenu(bar, QT_TRANSLATE_NOOP("MainMenu", "File"),
            {newWindow, newTab, nullptr, a.newFolder, a.open, a.openInTab, a.download,
             a.uploadFiles, a.uploadFolder, a.sync, callbacks.importPhotos, nullptr, a.preview,
             a.properties, nullptr, settings, nullptr, closeTab, quit});
    addMenu(bar, QT_TRANSLATE_NOOP("MainMenu", "Edit"),
            {a.undo, nullptr, a.cut, a.copy, a.paste, a.copyPath, nullptr, a.moveTo, a.copyTo,
             a.duplicate, nullptr, a.rename, a.remove, nullptr, a.selectAll, a.selectDay,
             a.invertSelection, a.find, a.search});
    addMenu(bar, QT_TRANSLATE_NOOP("MainMenu", "View"),
            {a.asList, a.asGrid, nullptr, a.zoomIn, a.zoomOut, a.zoomReset, nullptr,
             callbacks.sort->menuAction(), a.groupByDay, a.showHidden,
             callbacks.columns->menuAction(), callbacks.split, fullScreen, nullptr, a.reload});
    addMenu(bar, QT_TRANSLATE_NOOP("MainMenu", "Go"),
            {a.back, a.forward, a.up, a.goTo, a.apps, nullptr, nextTab, previousTab, nullptr,
             a.favorite, nullptr, wireless, history});
    addMenu(bar, QT_TRANSLATE_NOOP("MainMenu", "Help"), {help})
        ->setObjectName(QStringLiteral("helpMenu"));
    new MenuMnemonics(bar);
}

} // namespace tessary
