#include "views/browser/BrowserActions.h"

#include "app/LanguageManager.h"
#include "views/common/Icons.h"

#include <QAction>
#include <QActionGroup>
#include <QCoreApplication>
#include <QMenu>
#include <QMenuBar>
#include <QToolButton>

#include <array>

namespace tessary {

namespace {

struct Row {
    QAction* BrowserActions::*action;
    const char* icon;
    const char* text; ///< English
    QList<QKeySequence> shortcuts;
};

constexpr auto ctrlShift = Qt::CTRL | Qt::SHIFT;

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

/// The context of these texts.
class Commands {
    Q_DECLARE_TR_FUNCTIONS(BrowserActions)

public:
    static const std::array<Row, 38>& rows();
};

const std::array<Row, 38>& Commands::rows() {
    using A = BrowserActions;
    static const std::array<Row, 38> all{{
        {&A::back, "go-previous", QT_TR_NOOP("Back"), keys(backKey)},
        {&A::forward, "go-next", QT_TR_NOOP("Forward"), keys(forwardKey)},
        {&A::up, "go-up", QT_TR_NOOP("Parent Folder"), keys(upKey)},
        {&A::goTo, "edit-rename", QT_TR_NOOP("Go to Folder…"),
         keys(Qt::CTRL | Qt::Key_L, ctrlShift | Qt::Key_G)},
        {&A::reload, "view-refresh", QT_TR_NOOP("Reload"), keys(Qt::Key_F5, Qt::CTRL | Qt::Key_R)},
        {&A::open, "document-open", QT_TR_NOOP("Open"), keys(openKey)},
        {&A::openInTab, "tab-new", QT_TR_NOOP("Open in New Tab"),
         keys(Qt::CTRL | Qt::Key_Return, Qt::CTRL | Qt::Key_Enter)},
        {&A::newFolder, "folder-new", QT_TR_NOOP("New Folder"), keys(ctrlShift | Qt::Key_N)},
        {&A::undo, "edit-undo", QT_TR_NOOP("Undo"), keys(QKeySequence::Undo)},
        {&A::cut, "edit-cut", QT_TR_NOOP("Cut"), keys(QKeySequence::Cut)},
        {&A::copy, "edit-copy", QT_TR_NOOP("Copy"), keys(QKeySequence::Copy)},
        {&A::paste, "edit-paste", QT_TR_NOOP("Paste"), keys(QKeySequence::Paste)},
        {&A::copyPath, "edit-copy-path", QT_TR_NOOP("Copy Path"), keys(ctrlShift | Qt::Key_C)},
        {&A::moveTo, "edit-move", QT_TR_NOOP("Move to…"), keys(ctrlShift | Qt::Key_M)},
        {&A::copyTo, "edit-copy", QT_TR_NOOP("Copy to…"), keys(ctrlShift | Qt::Key_K)},
        {&A::duplicate, "edit-duplicate", QT_TR_NOOP("Duplicate"), keys(ctrlShift | Qt::Key_D)},
        {&A::rename, "edit-rename", QT_TR_NOOP("Rename"), keys(Qt::Key_F2)},
        {&A::remove, "edit-delete", QT_TR_NOOP("Delete"), keys(removeKey)},
        {&A::download, "copyFromPhone", QT_TR_NOOP("Copy to Computer"), keys(Qt::CTRL | Qt::Key_D)},
        {&A::uploadFiles, "copyToPhone", QT_TR_NOOP("Copy Files Here…"),
         keys(Qt::CTRL | Qt::Key_U)},
        {&A::uploadFolder, "copyToPhone", QT_TR_NOOP("Copy a Folder Here…"),
         keys(ctrlShift | Qt::Key_U)},
        {&A::selectAll, "edit-select-all", QT_TR_NOOP("Select All"), keys(QKeySequence::SelectAll)},
        {&A::invertSelection, "edit-select-invert", QT_TR_NOOP("Invert Selection"),
         keys(ctrlShift | Qt::Key_I)},
        {&A::find, "edit-find", QT_TR_NOOP("Filter"), keys(QKeySequence::Find)},
        {&A::search, "edit-find-folders", QT_TR_NOOP("Search Below This Folder"),
         keys(ctrlShift | Qt::Key_F)},
        {&A::asList, "view-list-details", QT_TR_NOOP("As List"), keys(Qt::CTRL | Qt::Key_1)},
        {&A::asGrid, "view-list-icons", QT_TR_NOOP("As Grid"), keys(Qt::CTRL | Qt::Key_2)},
        {&A::zoomIn, "zoom-in", QT_TR_NOOP("Larger Icons"),
         keys(Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal)},
        {&A::zoomOut, "zoom-out", QT_TR_NOOP("Smaller Icons"), keys(Qt::CTRL | Qt::Key_Minus)},
        {&A::zoomReset, "zoom-original", QT_TR_NOOP("Icons of Normal Size"),
         keys(Qt::CTRL | Qt::Key_0)},
        {&A::groupByDay, "view-calendar-day", QT_TR_NOOP("Group by Day"),
         keys(Qt::CTRL | Qt::Key_G)},
        {&A::selectDay, "edit-select", QT_TR_NOOP("Select the Day"), keys(ctrlShift | Qt::Key_S)},
        {&A::showHidden, "view-hidden", QT_TR_NOOP("Hidden Files"), keys(Qt::CTRL | Qt::Key_H)},
        {&A::favorite, "bookmark-new", QT_TR_NOOP("Add to Favorites"), keys(Qt::CTRL | Qt::Key_B)},
        {&A::apps, "view-list-icons", QT_TR_NOOP("Apps"), keys(ctrlShift | Qt::Key_A)},
        {&A::sync, "folder-sync", QT_TR_NOOP("Sync"), keys(Qt::CTRL | Qt::Key_Y)},
        {&A::preview, "view-preview", QT_TR_NOOP("Preview"), keys(Qt::Key_Space)},
        {&A::properties, "document-properties", QT_TR_NOOP("Properties"),
         keys(Qt::ALT | Qt::Key_Return, Qt::ALT | Qt::Key_Enter, Qt::CTRL | Qt::Key_I)},
    }};
    return all;
}

} // namespace

BrowserActions::BrowserActions(QWidget& owner) {
    for (const Row& row : Commands::rows()) {
        auto* action = new QAction(icon(row.icon), QString(), &owner);
        action->setShortcuts(row.shortcuts);
        action->setShortcutContext(Qt::WindowShortcut);
        keepTranslated(action, [action, english = row.text] {
            const QString text = Commands::tr(english);
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
    for (const Row& row : Commands::rows())
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
    for (const Row& row : Commands::rows())
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
