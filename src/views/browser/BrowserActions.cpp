#include "views/browser/BrowserActions.h"

#include "app/LanguageManager.h"
#include "views/common/Icons.h"

#include <QAction>
#include <QActionGroup>
#include <QCoreApplication>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QToolButton>
#include <QWidget>

#include <array>

namespace tessary {

namespace {

struct Row {
    QAction* BrowserActions::*action;
    const char* icon;
    const char* text; ///< English
    QList<QKeySequence> shortcuts;
};

// Where a Mac's file manager has other keys than a Linux desktop's. Qt's "Ctrl" is its Command key.
#ifdef Q_OS_MACOS
constexpr auto backKey = Qt::CTRL | Qt::Key_BracketLeft;
constexpr auto forwardKey = Qt::CTRL | Qt::Key_BracketRight;
constexpr auto upKey = Qt::CTRL | Qt::Key_Up;
constexpr auto openKey = Qt::CTRL | Qt::Key_Down;
constexpr auto removeKey = Qt::CTRL | Qt::Key_Backspace;
#else
constexpr auto backKey = Qt::ALT | Qt::Key_Left;
constexpr auto forwardKey = Qt::ALT | Qt::Key_Right;
constexpr auto upKey = Qt::ALT | Qt::Key_Up;
constexpr auto openKey = Qt::ALT | Qt::Key_Down;
constexpr auto removeKey = Qt::Key_Delete;
#endif

QList<QKeySequence> keys(auto... sequences) {
    return {QKeySequence(sequences)...};
}

const std::array<Row, 38>& commands() {
    using Actions = BrowserActions;
    static const std::array<Row, 38> rows{{
        {&Actions::back, "go-previous", QT_TRANSLATE_NOOP("BrowserActions", "Back"), keys(backKey)},
        {&Actions::forward, "go-next", QT_TRANSLATE_NOOP("BrowserActions", "Forward"),
         keys(forwardKey)},
        {&Actions::up, "go-up", QT_TRANSLATE_NOOP("BrowserActions", "Parent Folder"), keys(upKey)},
        {&Actions::goTo, "edit-rename", QT_TRANSLATE_NOOP("BrowserActions", "Go to Folder…"),
         keys(Qt::CTRL | Qt::Key_L, Qt::CTRL | Qt::SHIFT | Qt::Key_G)},
        {&Actions::reload, "view-refresh", QT_TRANSLATE_NOOP("BrowserActions", "Reload"),
         keys(Qt::Key_F5, Qt::CTRL | Qt::Key_R)},
        {&Actions::open, "document-open", QT_TRANSLATE_NOOP("BrowserActions", "Open"),
         keys(openKey)},
        {&Actions::openInTab, "tab-new", QT_TRANSLATE_NOOP("BrowserActions", "Open in New Tab"),
         keys(Qt::CTRL | Qt::Key_Return, Qt::CTRL | Qt::Key_Enter)},
        {&Actions::newFolder, "folder-new", QT_TRANSLATE_NOOP("BrowserActions", "New Folder"),
         keys(Qt::CTRL | Qt::SHIFT | Qt::Key_N)},
        {&Actions::undo, "edit-undo", QT_TRANSLATE_NOOP("BrowserActions", "Undo"),
         keys(QKeySequence::Undo)},
        {&Actions::cut, "edit-cut", QT_TRANSLATE_NOOP("BrowserActions", "Cut"),
         keys(QKeySequence::Cut)},
        {&Actions::copy, "edit-copy", QT_TRANSLATE_NOOP("BrowserActions", "Copy"),
         keys(QKeySequence::Copy)},
        {&Actions::paste, "edit-paste", QT_TRANSLATE_NOOP("BrowserActions", "Paste"),
         keys(QKeySequence::Paste)},
        {&Actions::copyPath, "edit-copy-path", QT_TRANSLATE_NOOP("BrowserActions", "Copy Path"),
         keys(Qt::CTRL | Qt::SHIFT | Qt::Key_C)},
        {&Actions::moveTo, "edit-move", QT_TRANSLATE_NOOP("BrowserActions", "Move to…"),
         keys(Qt::CTRL | Qt::SHIFT | Qt::Key_M)},
        {&Actions::copyTo, "edit-copy", QT_TRANSLATE_NOOP("BrowserActions", "Copy to…"),
         keys(Qt::CTRL | Qt::SHIFT | Qt::Key_K)},
        {&Actions::duplicate, "edit-duplicate", QT_TRANSLATE_NOOP("BrowserActions", "Duplicate"),
         keys(Qt::CTRL | Qt::SHIFT | Qt::Key_D)},
        {&Actions::rename, "edit-rename", QT_TRANSLATE_NOOP("BrowserActions", "Rename"),
         keys(Qt::Key_F2)},
        {&Actions::remove, "edit-delete", QT_TRANSLATE_NOOP("BrowserActions", "Delete"),
         keys(removeKey)},
        {&Actions::download, "copyFromPhone",
         QT_TRANSLATE_NOOP("BrowserActions", "Copy to Computer"), keys(Qt::CTRL | Qt::Key_D)},
        {&Actions::uploadFiles, "copyToPhone",
         QT_TRANSLATE_NOOP("BrowserActions", "Copy Files Here…"), keys(Qt::CTRL | Qt::Key_U)},
        {&Actions::uploadFolder, "copyToPhone",
         QT_TRANSLATE_NOOP("BrowserActions", "Copy a Folder Here…"),
         keys(Qt::CTRL | Qt::SHIFT | Qt::Key_U)},
        {&Actions::selectAll, "edit-select-all", QT_TRANSLATE_NOOP("BrowserActions", "Select All"),
         keys(QKeySequence::SelectAll)},
        {&Actions::invertSelection, "edit-select-invert",
         QT_TRANSLATE_NOOP("BrowserActions", "Invert Selection"),
         keys(Qt::CTRL | Qt::SHIFT | Qt::Key_I)},
        {&Actions::find, "edit-find", QT_TRANSLATE_NOOP("BrowserActions", "Filter"),
         keys(QKeySequence::Find)},
        {&Actions::search, "edit-find-folders",
         QT_TRANSLATE_NOOP("BrowserActions", "Search Below This Folder"),
         keys(Qt::CTRL | Qt::SHIFT | Qt::Key_F)},
        {&Actions::asList, "view-list-details", QT_TRANSLATE_NOOP("BrowserActions", "As List"),
         keys(Qt::CTRL | Qt::Key_1)},
        {&Actions::asGrid, "view-list-icons", QT_TRANSLATE_NOOP("BrowserActions", "As Grid"),
         keys(Qt::CTRL | Qt::Key_2)},
        {&Actions::zoomIn, "zoom-in", QT_TRANSLATE_NOOP("BrowserActions", "Larger Icons"),
         keys(Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal)},
        {&Actions::zoomOut, "zoom-out", QT_TRANSLATE_NOOP("BrowserActions", "Smaller Icons"),
         keys(Qt::CTRL | Qt::Key_Minus)},
        {&Actions::zoomReset, "zoom-original",
         QT_TRANSLATE_NOOP("BrowserActions", "Icons of Normal Size"), keys(Qt::CTRL | Qt::Key_0)},
        {&Actions::groupByDay, "view-calendar-day",
         QT_TRANSLATE_NOOP("BrowserActions", "Group by Day"), keys(Qt::CTRL | Qt::Key_G)},
        {&Actions::selectDay, "edit-select", QT_TRANSLATE_NOOP("BrowserActions", "Select the Day"),
         keys(Qt::CTRL | Qt::SHIFT | Qt::Key_S)},
        {&Actions::showHidden, "view-hidden", QT_TRANSLATE_NOOP("BrowserActions", "Hidden Files"),
         keys(Qt::CTRL | Qt::Key_H)},
        {&Actions::favorite, "bookmark-new",
         QT_TRANSLATE_NOOP("BrowserActions", "Add to Favorites"), keys(Qt::CTRL | Qt::Key_B)},
        {&Actions::apps, "view-list-icons", QT_TRANSLATE_NOOP("BrowserActions", "Apps"),
         keys(Qt::CTRL | Qt::SHIFT | Qt::Key_A)},
        {&Actions::sync, "folder-sync", QT_TRANSLATE_NOOP("BrowserActions", "Sync"),
         keys(Qt::CTRL | Qt::Key_Y)},
        {&Actions::preview, "view-preview", QT_TRANSLATE_NOOP("BrowserActions", "Preview"),
         keys(Qt::Key_Space)},
        {&Actions::properties, "document-properties",
         QT_TRANSLATE_NOOP("BrowserActions", "Properties"),
         keys(Qt::ALT | Qt::Key_Return, Qt::ALT | Qt::Key_Enter, Qt::CTRL | Qt::Key_I)},
    }};
    return rows;
}

} // namespace

BrowserActions::BrowserActions(QWidget& owner) {
    for (const Row& row : commands()) {
        auto* action = new QAction(icon(row.icon), QString(), &owner);
        action->setShortcuts(row.shortcuts);
        action->setShortcutContext(Qt::WindowShortcut);
        keepTranslated(action, [action, english = row.text] {
            const QString text = QCoreApplication::translate("BrowserActions", english);
            const QString shortcut = action->shortcut().toString(QKeySequence::NativeText);
            action->setText(text);
            action->setToolTip(shortcut.isEmpty() ? text
                                                  : QStringLiteral("%1 (%2)").arg(text, shortcut));
        });
        owner.addAction(action);
        this->*row.action = action;
    }
    auto* modes = new QActionGroup(&owner);
    for (QAction* mode : {asList, asGrid}) {
        mode->setCheckable(true);
        modes->addAction(mode);
    }
    asList->setChecked(true);
    showHidden->setCheckable(true);
    groupByDay->setCheckable(true);
    // A key that also edits text belongs to the field that has the focus.
    for (QAction* action : {undo, cut, remove, selectAll, rename, copy, paste})
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    // Space has other uses wherever there are no files.
    preview->setShortcutContext(Qt::WidgetShortcut);
}

void useKeys(const BrowserActions& actions, bool areUsed) {
    for (const Row& row : commands())
        (actions.*row.action)->setShortcuts(areUsed ? row.shortcuts : QList<QKeySequence>());
}

void replaceInMenus(QAction& before, QAction& next, const QMenuBar& menus) {
    for (const QAction* title : menus.actions())
        if (QMenu* menu = title->menu(); menu != nullptr && menu->actions().contains(&before)) {
            menu->insertAction(&before, &next);
            menu->removeAction(&before);
        }
}

void handOver(const BrowserActions& before, const BrowserActions& next, const QMenuBar& menus) {
    for (const Row& row : commands())
        replaceInMenus(*(before.*row.action), *(next.*row.action), menus);
    useKeys(before, false);
    useKeys(next, true);
}

QToolButton* makeToolButton(QAction& action) {
    auto* button = new QToolButton;
    button->setDefaultAction(&action);
    button->setAutoRaise(true);
    button->setIconSize({22, 22});
    const auto takeName = [button, &action] { button->setAccessibleName(action.text()); };
    takeName();
    QObject::connect(&action, &QAction::changed, button, takeName);
    return button;
}

} // namespace tessary
