#pragma once

class QAction;
class QMenuBar;
class QToolButton;
class QWidget;

namespace tessary {

/// The commands of the browser, for menus and toolbars. Their texts and tool tips follow the
/// interface's language, their state the browser.
struct BrowserActions {
    /// Makes them as children of `owner`, to whose window their keys belong.
    explicit BrowserActions(QWidget& owner);

    QAction* back;
    QAction* forward;
    QAction* up;
    QAction* goTo; ///< a path that is typed
    QAction* reload;
    QAction* open;
    QAction* openInTab;
    QAction* newFolder;
    QAction* undo;
    QAction* cut;
    QAction* copy;
    QAction* paste;
    QAction* copyPath;
    QAction* moveTo;
    QAction* copyTo;
    QAction* duplicate;
    QAction* rename;
    QAction* remove;
    QAction* download;
    QAction* uploadFiles;
    QAction* uploadFolder;
    QAction* selectAll;
    QAction* invertSelection;
    QAction* find;
    QAction* search; ///< in all that is below the folder
    QAction* asList;
    QAction* asGrid;
    QAction* zoomIn;
    QAction* zoomOut;
    QAction* zoomReset;
    QAction* groupByDay;
    QAction* selectDay; ///< of the entry that the keyboard is on
    QAction* showHidden;
    QAction* favorite;
    QAction* apps; ///< back to the apps of an iPhone
    QAction* sync;
    QAction* preview;
    QAction* properties;
};

/// Which of two browsers' commands a window's keys and menus mean: those of `next` from now on.
void handOver(const BrowserActions& before, const BrowserActions& next, const QMenuBar& menus);
/// Puts another command in the place of one.
void replaceInMenus(QAction& before, QAction& next, const QMenuBar& menus);
/// Gives the commands their keys, or takes these away while another browser has them.
void useKeys(const BrowserActions& actions, bool areUsed);

/// A toolbar button for a command, which has its name for those who do not see the icon.
[[nodiscard]] QToolButton* makeToolButton(QAction& action);

} // namespace tessary
