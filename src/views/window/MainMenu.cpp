#include "app/LanguageManager.h"
#include "views/common/Icons.h"
#include "views/common/Layouts.h"
#include "views/dialogs/HelpDialog.h"
#include "views/tabs/Tabs.h"
#include "views/window/MainWindow.h"
#include "views/window/MenuMnemonics.h"
#include "views/window/Panes.h"

#include <QMenuBar>

namespace tessary {

namespace {

/// The context of this file's texts.
class MainMenu {
    Q_DECLARE_TR_FUNCTIONS(MainMenu)
};

} // namespace

/// The commands of the browser that is shown, and the window's own.
void MainWindow::makeMenus() {
    QMenuBar& bar = *menuBar();
    const auto command = [&bar](const char* iconName, const char* text,
                                const QList<QKeySequence>& keys, auto run) {
        auto* action = new QAction(icon(iconName), QString(), &bar);
        action->setShortcuts(keys);
        connect(action, &QAction::triggered, &bar, run);
        keepTranslated(action, [action, text] { action->setText(MainMenu::tr(text)); });
        return action;
    };
    const auto addMenu = [&bar](const char* title, std::initializer_list<QAction*> actions) {
        QMenu* menu = bar.addMenu(QString());
        keepTranslated(menu, [menu, title] { menu->setTitle(MainMenu::tr(title)); });
        addCommands(*menu, actions);
        return menu;
    };
    QAction* newWindow = command("window-new", QT_TRANSLATE_NOOP("MainMenu", "New Window"),
                                 {QKeySequence::New}, [this] { openWindow(place()); });
    newWindow->setObjectName(QStringLiteral("newWindowAction"));
    QAction* newTab = command("tab-new", QT_TRANSLATE_NOOP("MainMenu", "New Tab"),
                              {Qt::CTRL | Qt::Key_T}, [this] { openTab(place(), true); });
    QAction* closesTab = command("tab-close", QT_TRANSLATE_NOOP("MainMenu", "Close Tab"),
                                 {Qt::CTRL | Qt::Key_W}, [this] { closeTab(tab()); });
    QAction* nextTab =
        command("go-next", QT_TRANSLATE_NOOP("MainMenu", "Next Tab"),
                {Qt::CTRL | Qt::Key_PageDown, Qt::CTRL | Qt::Key_Tab}, [this] { tabs_->step(1); });
    QAction* previousTab = command("go-previous", QT_TRANSLATE_NOOP("MainMenu", "Previous Tab"),
                                   {Qt::CTRL | Qt::Key_PageUp, Qt::CTRL | Qt::SHIFT | Qt::Key_Tab},
                                   [this] { tabs_->step(-1); });
    QAction* settings = command("configure", QT_TRANSLATE_NOOP("MainMenu", "Settings"),
                                {Qt::CTRL | Qt::Key_Comma}, [this] { showSettings(); });
    settings->setMenuRole(QAction::PreferencesRole);
    QAction* wireless =
        command("network-wireless", QT_TRANSLATE_NOOP("MainMenu", "Wireless Devices…"), {},
                [this] { showWireless(); });
    QAction* history = command("view-history", QT_TRANSLATE_NOOP("MainMenu", "Copy History…"),
                               {Qt::CTRL | Qt::SHIFT | Qt::Key_H}, [this] { showCopyHistory(); });
    history->setObjectName(QStringLiteral("copyHistoryAction"));
    QAction* fullScreen =
        command("view-fullscreen", QT_TRANSLATE_NOOP("MainMenu", "Full Screen"), {Qt::Key_F11},
                [this] { setWindowState(windowState() ^ Qt::WindowFullScreen); });
    QAction* quits = command("application-exit", QT_TRANSLATE_NOOP("MainMenu", "Quit Tessary"),
                             {Qt::CTRL | Qt::Key_Q}, [this] { quit(); });
    quits->setMenuRole(QAction::QuitRole);
    QAction* help = command("help-contents", QT_TRANSLATE_NOOP("MainMenu", "Help"),
                            {QKeySequence::HelpContents},
                            [this, &bar] { (new HelpDialog(bar, this))->show(); });

    BrowserView& view = browserView();
    const BrowserActions& a = view.actions();
    addMenu(QT_TRANSLATE_NOOP("MainMenu", "File"),
            {newWindow, newTab, nullptr, a.newFolder, a.open, a.openInTab, a.download,
             a.uploadFiles, a.uploadFolder, a.sync, importAction_, nullptr, a.preview, a.properties,
             nullptr, settings, nullptr, closesTab, quits});
    addMenu(QT_TRANSLATE_NOOP("MainMenu", "Edit"),
            {a.undo, nullptr, a.cut, a.copy, a.paste, a.copyPath, nullptr, a.moveTo, a.copyTo,
             a.duplicate, nullptr, a.rename, a.remove, nullptr, a.selectAll, a.selectDay,
             a.invertSelection, a.find, a.search});
    addMenu(QT_TRANSLATE_NOOP("MainMenu", "View"),
            {a.asList, a.asGrid, nullptr, a.zoomIn, a.zoomOut, a.zoomReset, nullptr,
             view.sortMenu().menuAction(), a.groupByDay, a.showHidden,
             view.columnMenu().menuAction(), &panes_->toggle(), fullScreen, nullptr, a.reload});
    addMenu(QT_TRANSLATE_NOOP("MainMenu", "Go"),
            {a.back, a.forward, a.up, a.goTo, a.apps, nullptr, nextTab, previousTab, nullptr,
             a.favorite, nullptr, wireless, history});
    addMenu(QT_TRANSLATE_NOOP("MainMenu", "Help"), {help})
        ->setObjectName(QStringLiteral("helpMenu"));
    new MenuMnemonics(bar);
}

} // namespace tessary
