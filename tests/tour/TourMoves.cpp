#include "tour/TourMoves.h"

#include "support/ShownItems.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QLineEdit>

namespace tessary {

void tourMoves(TourStage& stage) {
    MainWindow& window = stage.window();
    const BrowserActions& actions = window.browserView().actions();
    stage.open(QStringLiteral("/sdcard/Documents"));
    const auto rows = shownItems(window.browser());
    if (rows.empty())
        throw std::runtime_error("there are no documents");
    window.browser().selection().select(rows.back().id());
    stage.shootWhenOpen(QStringLiteral("entry-menu"));
    QAbstractItemView& view = window.browserView().currentListing();
    const QPoint spot = view.visualRect(view.currentIndex()).center();
    QContextMenuEvent menu(QContextMenuEvent::Mouse, spot, view.viewport()->mapToGlobal(spot));
    QApplication::sendEvent(view.viewport(), &menu);

    stage.open(QStringLiteral("/sdcard"));
    stage.selectNamed({QStringLiteral("Documents")});
    stage.shootWhenOpen(QStringLiteral("move-to"));
    actions.moveTo->trigger();

    stage.open(QStringLiteral("/sdcard/DCIM/Camera"));
    for (int i = 0; i < 4; ++i)
        actions.zoomIn->trigger();
    stage.shoot(QStringLiteral("large-list"));
    window.browser().setViewMode(ViewMode::grid);
    stage.shoot(QStringLiteral("large-grid"));
    actions.zoomReset->trigger();
    window.browser().setViewMode(ViewMode::list);
}

void tourSearch(TourStage& stage) {
    MainWindow& window = stage.window();
    stage.open(QStringLiteral("/sdcard"));
    window.browserView().actions().search->trigger();
    auto* field = window.findChild<QLineEdit*>(QStringLiteral("filter"));
    field->setText(QStringLiteral("01"));
    window.browser().searchBelow(field->text());
    stage.waitFor("what is found", [&] { return !window.browser().isLoading(); });
    window.browserView().currentListing().setFocus();
    stage.shoot(QStringLiteral("search"));
    field->clear();
    stage.waitFor("the folder", [&] { return !window.browser().isLoading(); });
}

void tourSmallWindow(TourStage& stage) {
    MainWindow& window = stage.window();
    const QSize size = window.size();
    stage.open(QStringLiteral("/sdcard/DCIM/Camera"));
    window.resize(800, 500);
    stage.shoot(QStringLiteral("small-list"));
    window.browser().setViewMode(ViewMode::grid);
    stage.shoot(QStringLiteral("small-grid"));
    window.browser().setViewMode(ViewMode::list);
    window.resize(size);
}

} // namespace tessary
