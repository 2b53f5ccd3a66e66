#pragma once

#include "views/browser/BrowserActions.h"

#include <functional>

class QAction;
class QMenu;
class QMenuBar;

namespace tessary {

/// What the menus do besides the browser's commands.
struct MainMenuCallbacks {
    std::function<void()> newWindow;
    std::function<void()> newTab;
    std::function<void()> closeTab;
    std::function<void()> nextTab;
    std::function<void()> previousTab;
    QAction* split = nullptr; ///< a folder of this computer beside the phone's
    QMenu* columns = nullptr; ///< which columns the list has
    QMenu* sort = nullptr;    ///< by what the files are sorted
    std::function<void()> showHelp;
    std::function<void()> showSettings;
    std::function<void()> showWireless;
    std::function<void()> showCopyHistory;
    QAction* importPhotos = nullptr;
    std::function<void()> toggleFullScreen;
    std::function<void()> quit;
};

/// Fills the main window's menus; their texts follow the interface's language.
void makeMainMenus(QMenuBar& bar, const BrowserActions& actions,
                   const MainMenuCallbacks& callbacks);

} // namespace tessary
