#include "tour/TourHands.h"

#include "support/ShownItems.h"
#include "views/listing/DragOut.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QTest>

#include <algorithm>
#include <stdexcept>

namespace tessary {

namespace {

const QString notes = QStringLiteral("Shopping.txt");

void require(const char* what, bool holds) {
    if (!holds)
        throw std::runtime_error(std::string("it did not come about: ") + what);
}

void waitForNames(TourStage& stage, const QStringList& there, const QStringList& gone) {
    stage.waitFor("the names of a folder", [&] {
        QStringList names;
        for (const FileItem& item : shownItems(stage.window().browser()))
            names.append(item.name);
        const auto isShown = [&](const QString& name) { return names.contains(name); };
        return !stage.window().browser().isLoading() && !stage.window().browser().isEditing() &&
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
    const BrowserActions& actions = window.browserView().actions();
    const QString renamed = QStringLiteral("Groceries.txt");
    stage.open(QStringLiteral("/sdcard/Documents"));
    stage.selectNamed({notes});
    const std::size_t before = window.browser().items().size();
    actions.duplicate->trigger();
    stage.waitFor("the duplicate", [&] {
        return !window.browser().isLoading() && window.copyQueue().summary().isIdle() &&
               window.browser().items().size() == before + 1;
    });
    stage.shoot(QStringLiteral("duplicate"));
    window.copyQueue().clearFinished();

    stage.selectNamed({notes});
    window.browser().renameItem(window.browser().selection().entries().front().id(), renamed);
    waitForNames(stage, {renamed}, {notes});
    shootMenu(stage, 1, QStringLiteral("undo-rename"));
    actions.undo->trigger();
    waitForNames(stage, {notes}, {renamed});
    stage.shoot(QStringLiteral("rename-undone"));

    stage.selectNamed({notes});
    actions.cut->trigger();
    stage.open(QStringLiteral("/sdcard/Documents/Travel"));
    actions.paste->trigger();
    waitForNames(stage, {notes}, {});
    shootMenu(stage, 1, QStringLiteral("undo-move"));
    actions.undo->trigger();
    waitForNames(stage, {}, {notes});
    stage.open(QStringLiteral("/sdcard/Documents"));
    waitForNames(stage, {notes}, {});
    stage.shoot(QStringLiteral("move-undone"));

    const QString folder = QStringLiteral("Bills");
    window.browser().createFolder(folder);
    waitForNames(stage, {folder}, {});
    if (auto* name = window.browserView().currentListing().findChild<QLineEdit*>())
        QTest::keyClick(name, Qt::Key_Escape); // it stays as it was made
    shootMenu(stage, 1, QStringLiteral("undo-new-folder"));
    actions.undo->trigger();
    waitForNames(stage, {}, {folder});
}

void tourSelection(TourStage& stage) {
    MainWindow& window = stage.window();
    const BrowserActions& actions = window.browserView().actions();
    stage.selectNamed({notes});
    actions.copyPath->trigger();
    require("the path on the clipboard",
            QGuiApplication::clipboard()->text() == QStringLiteral("/sdcard/Documents/") + notes);
    actions.invertSelection->trigger();
    require("all but one", window.browser().selection().entries().size() + 1 ==
                               shownItems(window.browser()).size());
    stage.shoot(QStringLiteral("inverted"));
    shootMenu(stage, 2, QStringLiteral("view-menu"));
    stage.shootWhenOpen(QStringLiteral("sort-menu"));
    window.browserView().sortMenu().exec(window.mapToGlobal(QPoint(400, 200)));

    QAbstractItemView& view = window.browserView().currentListing();
    QWidget* rows = view.viewport();
    const QPoint corner(rows->width() - 20, rows->height() - 20);
    QTest::mousePress(rows, Qt::LeftButton, {}, corner);
    QTest::mouseMove(rows, corner - QPoint(40, 40));
    QTest::mouseMove(rows, QPoint(rows->width() / 2, 40));
    stage.shoot(QStringLiteral("rubber-band"));
    QTest::mouseRelease(rows, Qt::LeftButton, {}, QPoint(rows->width() / 2, 40));

    const QString before = window.browser().currentPath();
    stage.open(QStringLiteral("/sdcard/Music"));
    for (const auto& [button, path] : {std::pair(Qt::BackButton, before),
                                       {Qt::ForwardButton, QStringLiteral("/sdcard/Music")}}) {
        QTest::mouseClick(rows, button, {}, corner);
        stage.waitFor("the folder of the history",
                      [&, &path = path] { return window.browser().currentPath() == path; });
    }
}

/// With Alt, which asks.
void tourDropMenu(TourStage& stage) {
    MainWindow& window = stage.window();
    stage.open(QStringLiteral("/sdcard/Documents"));
    stage.selectNamed({notes});
    const DragOutData dragged(window.browser(), window.browser().selection().entries(),
                              EntryMimeData::Use::move);
    QAbstractItemView& view = window.browserView().currentListing();
    const QPoint spot = view.visualRect(view.model()->index(0, 0)).center();
    QCursor::setPos(view.viewport()->mapToGlobal(spot));
    BrowserView& target = window.browserView();
    const QPoint there = view.viewport()->mapTo(&target, spot);
    const Qt::DropActions offered = Qt::MoveAction | Qt::CopyAction;
    QDragEnterEvent enter(there, offered, &dragged, Qt::LeftButton, Qt::AltModifier);
    QApplication::sendEvent(&target, &enter);
    QDropEvent drop(there, offered, &dragged, Qt::LeftButton, Qt::AltModifier);
    stage.shootWhenOpen(QStringLiteral("drop-menu"));
    QApplication::sendEvent(&target, &drop);
}

/// By the keys of the clipboard, and the mouse in between.
void tourBetweenPhones(TourStage& stage) {
    MainWindow& window = stage.window();
    auto& devices = *window.findChild<QListView*>(QStringLiteral("deviceList"));
    const auto clickOther = [&] {
        const QModelIndex other = devices.model()->index(1 - devices.currentIndex().row(), 0);
        QTest::mouseClick(devices.viewport(), Qt::LeftButton, {},
                          devices.visualRect(other).center());
    };
    const auto isRead = [&] {
        return !window.browser().isLoading() && !window.browser().items().empty();
    };
    stage.phones().plugInAnotherAndroid();
    stage.waitFor("another phone", [&] { return devices.model()->rowCount() == 2; });
    stage.open(QStringLiteral("/sdcard"));
    stage.selectNamed({QStringLiteral("Documents")});
    stage.press(Qt::Key_C, Qt::ControlModifier);
    clickOther();
    stage.waitFor("the other phone", isRead);
    window.choice().browseFiles();
    stage.waitFor("its files", isRead);
    stage.phones().setSpeed(TourStage::slowSpeed);
    stage.press(Qt::Key_V, Qt::ControlModifier);
    stage.waitFor("the copy", [&] {
        const auto& jobs = window.copyQueue().jobs();
        return !jobs.empty() && jobs.back().fractionDone() > 0.25;
    });
    stage.shoot(QStringLiteral("paste-between-phones"));
    stage.phones().setSpeed(0);
    stage.waitFor("its end", [&] { return window.copyQueue().summary().isIdle(); });
    window.copyQueue().clearFinished();
    clickOther();
    stage.waitFor("the first phone", isRead);
    stage.phones().unplugAnotherAndroid();
    stage.waitFor("one phone", [&] { return devices.model()->rowCount() == 1; });
}

} // namespace

void tourHands(TourStage& stage) {
    MainWindow& window = stage.window();
    tourUndo(stage);
    tourSelection(stage);
    tourDropMenu(stage);
    tourBetweenPhones(stage);
    MainWindow& second = window.openWindow(window.place());
    stage.waitFor("the second window", [&] { return !second.browser().items().empty(); });
    stage.shoot(QStringLiteral("second-window"), second);
    second.close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    const QSize size = window.size();
    window.showFullScreen();
    stage.shoot(QStringLiteral("full-screen"));
    window.showNormal();
    window.resize(size);
}

} // namespace tessary
