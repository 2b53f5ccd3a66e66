#include "support/ShownItems.h"
#include "tour/Tour.h"
#include "views/dialogs/PreviewWindow.h"
#include "views/dialogs/PropertiesDialog.h"

#include <QAction>
#include <QApplication>
#include <QCompleter>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QTest>

namespace tessary {

using namespace Qt::StringLiterals;

void tourListings(TourStage& stage) {
    FileBrowserViewModel& browser = stage.browser();
    stage.shoot(u"storage"_s);
    stage.open(u"/sdcard/DCIM/Camera"_s);
    const auto rows = shownItems(browser);
    browser.selection().set({rows.at(1).id(), rows.at(2).id(), rows.at(3).id()}, rows.at(3).id());
    stage.shoot(u"list"_s);
    browser.setViewMode(ViewMode::grid);
    QAbstractItemView& grid = stage.listing();
    grid.setFocus();
    stage.shootPictures(u"grid"_s, grid, grid);
    DayGrouping& days = browser.dayGrouping();
    days.setOn(!days.isOn());
    stage.shootPictures(days.isOn() ? u"grid-by-day"_s : u"grid-without-days"_s, grid, grid);
    days.setOn(!days.isOn());
    browser.setViewMode(ViewMode::list);
    stage.open(u"/sdcard/Download/Archive"_s);
    browser.setSearchText(u"12"_s);
    stage.shoot(u"filter"_s);
    browser.setSearchText(u"no such name"_s);
    stage.shoot(u"no-results"_s);
    browser.setSearchText({});
}

void tourTypedPaths(TourStage& stage) {
    stage.open(u"/sdcard"_s);
    stage.actions().goTo->trigger();
    auto* edit = stage.window().findChild<QLineEdit*>(u"pathEdit"_s);
    edit->setText(u"/sdcard/D"_s);
    Q_EMIT edit->textEdited(edit->text());
    edit->completer()->complete();
    stage.shoot(u"typed-path"_s);
    edit->completer()->popup()->hide();
    edit->setText(u"/sdcard/Documents/Taxes 2031"_s);
    stage.browser().goToTyped(edit->text(), [](bool) {});
    stage.waitFor("the refused path", [&] { return stage.browser().problem().has_value(); });
    stage.shoot(u"wrong-path"_s);
    stage.listing().setFocus();
    stage.browser().dismissProblem();
}

void tourMoves(TourStage& stage) {
    stage.open(u"/sdcard/Documents"_s);
    const auto rows = shownItems(stage.browser());
    if (rows.empty())
        throw std::runtime_error("there are no documents");
    stage.browser().selection().select(rows.back().id());
    stage.shootWhenOpen(u"entry-menu"_s);
    QWidget* const entries = stage.listing().viewport();
    const QPoint spot = stage.listing().visualRect(stage.listing().currentIndex()).center();
    QContextMenuEvent menu(QContextMenuEvent::Mouse, spot, entries->mapToGlobal(spot));
    QApplication::sendEvent(entries, &menu);

    stage.open(u"/sdcard"_s);
    stage.selectNamed({u"Documents"_s});
    stage.shootWhenOpen(u"move-to"_s);
    stage.actions().moveTo->trigger();

    stage.open(u"/sdcard/DCIM/Camera"_s);
    for (int i = 0; i < 4; ++i)
        stage.actions().zoomIn->trigger();
    stage.shoot(u"large-list"_s);
    stage.browser().setViewMode(ViewMode::grid);
    stage.shoot(u"large-grid"_s);
    stage.actions().zoomReset->trigger();
    stage.browser().setViewMode(ViewMode::list);
}

void tourSearch(TourStage& stage) {
    stage.open(u"/sdcard"_s);
    stage.actions().search->trigger();
    auto* field = stage.window().findChild<QLineEdit*>(u"filter"_s);
    field->setText(u"01"_s);
    stage.browser().searchBelow(field->text());
    stage.waitForFolder();
    stage.listing().setFocus();
    stage.shoot(u"search"_s);
    field->clear();
    stage.waitForFolder();
}

void tourSmallWindow(TourStage& stage) {
    stage.open(u"/sdcard/DCIM/Camera"_s);
    stage.shootSmall(u"small-list"_s);
    stage.browser().setViewMode(ViewMode::grid);
    stage.shootSmall(u"small-grid"_s);
    stage.browser().setViewMode(ViewMode::list);
}

void tourPreviews(TourStage& stage) {
    const struct {
        const char* name;
        const char* folder;
        std::size_t row;
        const char* page; ///< that is waited for
    } rows[] = {{"preview-picture", "/sdcard/DCIM/Camera", 2, "previewPicture"},
                {"preview-text", "/sdcard/Documents/Travel", 1, "previewText"},
                {"preview-facts", "/sdcard/Music/First Songs", 1, nullptr}};
    for (const auto& row : rows) {
        stage.open(QString::fromLatin1(row.folder));
        const auto shown = shownItems(stage.browser());
        stage.browser().selection().select(shown.at(row.row).id());
        stage.actions().preview->trigger();
        const auto* preview = stage.window().findChild<PreviewWindow*>();
        stage.waitFor(row.name, [&] {
            const auto* page = preview->findChild<QWidget*>(QString::fromLatin1(row.page));
            return row.page == nullptr || (page != nullptr && page->isVisible());
        });
        stage.shoot(QString::fromLatin1(row.name));
        stage.actions().preview->trigger();
    }
}

void tourProperties(TourStage& stage) {
    stage.open(u"/sdcard"_s);
    for (const QStringList& names :
         {QStringList{u"Documents"_s}, QStringList{u"DCIM"_s, u"Music"_s}}) {
        stage.selectNamed(names);
        stage.press(Qt::Key_Return, Qt::AltModifier);
        auto* dialog = stage.window().findChild<PropertiesDialog*>();
        stage.waitFor("the count", [dialog] { return dialog != nullptr && !dialog->isCounting(); });
        stage.shoot(u"properties"_s);
        delete dialog;
    }
}

void tourEdits(TourStage& stage) {
    FileBrowserViewModel& browser = stage.browser();
    stage.open(u"/sdcard/Documents"_s);
    bool isMade = false;
    const auto made = QObject::connect(&browser, &FileBrowserViewModel::folderCreated,
                                       &stage.window(), [&isMade] { isMade = true; });
    browser.createFolder();
    stage.waitFor("the new folder", [&isMade] { return isMade; });
    QObject::disconnect(made);
    stage.shoot(u"new-folder"_s);
    // The new name is taken as it stands.
    if (auto* editor = stage.listing().findChild<QLineEdit*>())
        QTest::keyClick(editor, Qt::Key_Return);

    for (const QStringList& names :
         {QStringList{u"Household"_s}, QStringList{u"Recipes"_s, u"Travel"_s, u"Shopping.txt"_s}}) {
        stage.selectNamed(names);
        stage.shootWhenOpen(u"delete-question"_s);
        stage.actions().remove->trigger();
    }
}

} // namespace tessary
