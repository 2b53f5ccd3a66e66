#include "tour/TourFolders.h"

#include "support/ShownItems.h"
#include "views/dialogs/PreviewWindow.h"
#include "views/dialogs/PropertiesDialog.h"
#include "views/listing/ThumbnailStore.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QCompleter>
#include <QLineEdit>
#include <QTest>

namespace tessary {

void tourListings(TourStage& stage) {
    MainWindow& window = stage.window();
    FileBrowserViewModel& browser = window.browser();
    stage.shoot(QStringLiteral("storage"));
    stage.open(QStringLiteral("/sdcard/DCIM/Camera"));
    const auto rows = shownItems(browser);
    for (std::size_t i = 1; i < std::min<std::size_t>(rows.size(), 4); ++i)
        browser.selection().select(rows[i].id(),
                                   i == 1 ? SelectionChange::replace : SelectionChange::extend);
    stage.shoot(QStringLiteral("list"));
    browser.setViewMode(ViewMode::grid);
    window.browserView().currentListing().setFocus();
    QAbstractItemView& grid = window.browserView().currentListing();
    auto* thumbnails = grid.findChild<ThumbnailStore*>();
    const auto shootGrid = [&](const char* name) {
        grid.viewport()->repaint(); // what is painted is asked for
        stage.waitFor("the thumbnails", [thumbnails] { return thumbnails->isIdle(); });
        stage.shoot(QString::fromLatin1(name));
    };
    shootGrid("grid");
    browser.dayGrouping().setOn(!browser.dayGrouping().isOn());
    shootGrid(browser.dayGrouping().isOn() ? "grid-by-day" : "grid-without-days");
    browser.dayGrouping().setOn(!browser.dayGrouping().isOn());
    browser.setViewMode(ViewMode::list);
    stage.open(QStringLiteral("/sdcard/Download/Archive"));
    browser.setSearchText(QStringLiteral("12"));
    stage.shoot(QStringLiteral("filter"));
    browser.setSearchText(QStringLiteral("no such name"));
    stage.shoot(QStringLiteral("no-results"));
    browser.setSearchText({});
}

void tourTypedPaths(TourStage& stage) {
    MainWindow& window = stage.window();
    stage.open(QStringLiteral("/sdcard"));
    window.browserView().actions().goTo->trigger();
    auto* edit = window.findChild<QLineEdit*>(QStringLiteral("pathEdit"));
    edit->setText(QStringLiteral("/sdcard/D"));
    Q_EMIT edit->textEdited(edit->text());
    edit->completer()->complete();
    stage.shoot(QStringLiteral("typed-path"));
    edit->completer()->popup()->hide();
    edit->setText(QStringLiteral("/sdcard/Documents/Taxes 2031"));
    window.browser().goToTyped(edit->text(), [](bool) {});
    stage.waitFor("the refused path", [&] { return window.browser().problem().has_value(); });
    stage.shoot(QStringLiteral("wrong-path"));
    window.browserView().currentListing().setFocus();
    window.browser().dismissProblem();
}

void tourPreviews(TourStage& stage) {
    MainWindow& window = stage.window();
    stage.open(QStringLiteral("/sdcard/DCIM/Camera"));
    window.browser().selection().select(shownItems(window.browser()).at(2).id());
    window.browserView().actions().quickLook->trigger();
    const auto shows = [&](const char* page) {
        const auto* widget =
            window.findChild<PreviewWindow*>()->findChild<QWidget*>(QString::fromLatin1(page));
        return widget != nullptr && widget->isVisible();
    };
    stage.waitFor("the preview of a picture", [&] { return shows("previewPicture"); });
    stage.shoot(QStringLiteral("preview-picture"));
    window.browserView().actions().quickLook->trigger();
    stage.open(QStringLiteral("/sdcard/Documents/Travel"));
    stage.selectNamed({QStringLiteral("Packing list.md")});
    window.browserView().actions().quickLook->trigger();
    stage.waitFor("the preview of a text", [&] { return shows("previewText"); });
    stage.shoot(QStringLiteral("preview-text"));
    window.browserView().actions().quickLook->trigger();
    stage.open(QStringLiteral("/sdcard/Music/First Songs"));
    window.browser().selection().select(shownItems(window.browser()).at(1).id());
    window.browserView().actions().quickLook->trigger();
    stage.shoot(QStringLiteral("preview-facts"));
    window.browserView().actions().quickLook->trigger();
}

void tourProperties(TourStage& stage) {
    MainWindow& window = stage.window();
    stage.open(QStringLiteral("/sdcard"));
    for (const QStringList& names :
         {QStringList{QStringLiteral("Documents")},
          QStringList{QStringLiteral("DCIM"), QStringLiteral("Music")}}) {
        stage.selectNamed(names);
        stage.press(Qt::Key_Return, Qt::AltModifier);
        auto* dialog = window.findChild<PropertiesDialog*>();
        stage.waitFor("the count", [dialog] { return dialog != nullptr && !dialog->isCounting(); });
        stage.shoot(QStringLiteral("properties"));
        delete dialog;
    }
}

void tourEdits(TourStage& stage) {
    MainWindow& window = stage.window();
    FileBrowserViewModel& browser = window.browser();
    stage.open(QStringLiteral("/sdcard/Documents"));
    bool isMade = false;
    const auto made = QObject::connect(&browser, &FileBrowserViewModel::folderCreated, &window,
                                       [&isMade] { isMade = true; });
    browser.createFolder();
    stage.waitFor("the new folder", [&isMade] { return isMade; });
    QObject::disconnect(made);
    stage.shoot(QStringLiteral("new-folder"));
    // The new name is taken as it stands.
    if (auto* editor = window.browserView().currentListing().findChild<QLineEdit*>())
        QTest::keyClick(editor, Qt::Key_Return);

    for (const QStringList& names :
         {QStringList{QStringLiteral("Household")},
          QStringList{QStringLiteral("Recipes"), QStringLiteral("Travel"),
                      QStringLiteral("Shopping.txt")}}) {
        stage.selectNamed(names);
        stage.shootWhenOpen(QStringLiteral("delete-question"));
        window.browserView().actions().remove->trigger();
    }
}

} // namespace tessary
