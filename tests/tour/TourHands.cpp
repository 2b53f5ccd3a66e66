#include "support/FileBytes.h"
#include "support/ShownItems.h"
#include "tour/Tour.h"
#include "views/listing/DragOut.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QMenu>
#include <QMenuBar>
#include <QTest>

#include <algorithm>
#include <stdexcept>

namespace tessary {

using namespace Qt::StringLiterals;

namespace {

const QString notes = u"Shopping.txt"_s;

void require(const char* what, bool holds) {
    if (!holds)
        throw std::runtime_error(std::string("it did not come about: ") + what);
}

void waitForNames(TourStage& stage, const QStringList& there, const QStringList& gone) {
    stage.waitFor("the names of a folder", [&] {
        const QStringList names = namesOf(shownItems(stage.browser()));
        const auto isShown = [&](const QString& name) { return names.contains(name); };
        return !stage.browser().isLoading() && !stage.browser().isEditing() &&
               std::ranges::all_of(there, isShown) && std::ranges::none_of(gone, isShown);
    });
}

/// One of the window's menus, open.
void shootMenu(TourStage& stage, int number, const QString& name) {
    QMenuBar& bar = *stage.window().menuBar();
    QAction* title = bar.actions().at(number);
    title->menu()->popup(bar.mapToGlobal(bar.actionGeometry(title).bottomLeft()));
    stage.shoot(name);
    title->menu()->close();
}

void tourUndo(TourStage& stage) {
    MainWindow& window = stage.window();
    const BrowserActions& actions = stage.actions();
    const QString renamed = u"Groceries.txt"_s;
    stage.open(u"/sdcard/Documents"_s);
    stage.selectNamed({notes});
    const std::size_t before = stage.browser().items().size();
    actions.duplicate->trigger();
    stage.waitFor("the duplicate", [&] {
        return !stage.browser().isLoading() && window.copyQueue().summary().isIdle() &&
               stage.browser().items().size() == before + 1;
    });
    stage.shoot(u"duplicate"_s);
    window.copyQueue().clearFinished();

    stage.selectNamed({notes});
    stage.browser().renameItem(stage.browser().selection().entries().front().id(), renamed);
    waitForNames(stage, {renamed}, {notes});
    shootMenu(stage, 1, u"undo-rename"_s);
    actions.undo->trigger();
    waitForNames(stage, {notes}, {renamed});
    stage.shoot(u"rename-undone"_s);
}

void tourSelection(TourStage& stage) {
    MainWindow& window = stage.window();
    stage.selectNamed({notes});
    stage.actions().copyPath->trigger();
    require("the path on the clipboard",
            QGuiApplication::clipboard()->text() == u"/sdcard/Documents/"_s + notes);
    stage.actions().invertSelection->trigger();
    require("all but one",
            stage.browser().selection().entries().size() + 1 == shownItems(stage.browser()).size());
    stage.shoot(u"inverted"_s);
    shootMenu(stage, 2, u"view-menu"_s);
    stage.shootWhenOpen(u"sort-menu"_s);
    window.browserView().sortMenu().exec(window.mapToGlobal(QPoint(400, 200)));

    QWidget* rows = stage.listing().viewport();
    const QPoint corner(rows->width() - 20, rows->height() - 20);
    const QPoint top(rows->width() / 2, 40);
    QTest::mousePress(rows, Qt::LeftButton, {}, corner);
    QTest::mouseMove(rows, corner - QPoint(40, 40));
    QTest::mouseMove(rows, top);
    stage.shoot(u"rubber-band"_s);
    QTest::mouseRelease(rows, Qt::LeftButton, {}, top);
}

/// With Alt, which asks.
void tourDropMenu(TourStage& stage) {
    stage.open(u"/sdcard/Documents"_s);
    stage.selectNamed({notes});
    const DragOutData dragged(stage.browser(), stage.browser().selection().entries(),
                              EntryMimeData::Use::move);
    QAbstractItemView& view = stage.listing();
    const QPoint spot = view.visualRect(view.model()->index(0, 0)).center();
    QCursor::setPos(view.viewport()->mapToGlobal(spot));
    BrowserView& target = stage.window().browserView();
    const QPoint there = view.viewport()->mapTo(&target, spot);
    const Qt::DropActions offered = Qt::MoveAction | Qt::CopyAction;
    QDragEnterEvent enter(there, offered, &dragged, Qt::LeftButton, Qt::AltModifier);
    QApplication::sendEvent(&target, &enter);
    QDropEvent drop(there, offered, &dragged, Qt::LeftButton, Qt::AltModifier);
    stage.shootWhenOpen(u"drop-menu"_s);
    QApplication::sendEvent(&target, &drop);
}

} // namespace

void tourHands(TourStage& stage) {
    MainWindow& window = stage.window();
    tourUndo(stage);
    tourSelection(stage);
    tourDropMenu(stage);
    MainWindow& second = window.openWindow(window.place());
    stage.waitFor("the second window", [&] { return !second.browser().items().empty(); });
    stage.shoot(u"second-window"_s, second);
    second.close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    const QSize size = window.size();
    window.showFullScreen();
    stage.shoot(u"full-screen"_s);
    window.showNormal();
    window.resize(size);
}

} // namespace tessary
