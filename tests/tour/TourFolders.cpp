#include "tour/Tour.h"
#include "views/dialogs/PreviewWindow.h"
#include "views/dialogs/PropertiesDialog.h"
#include "views/listing/ThumbnailStore.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QCompleter>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTimer>

namespace tessary {

void Tour::browse() {
    FileBrowserViewModel& browser = window_.browser();
    shoot(QStringLiteral("storage"));
    open(QStringLiteral("/sdcard/DCIM/Camera"));
    const auto rows = browser.filteredItems();
    for (std::size_t i = 1; i < std::min<std::size_t>(rows.size(), 4); ++i)
        browser.selectItem(rows[i].id(),
                           i == 1 ? SelectionChange::replace : SelectionChange::extend);
    shoot(QStringLiteral("list"));
    browser.setViewMode(ViewMode::grid);
    window_.browserView().currentListing().setFocus();
    auto* thumbnails = window_.browserView().currentListing().findChild<ThumbnailStore*>();
    waitFor("the thumbnails",
            [thumbnails] { return thumbnails != nullptr && thumbnails->isIdle(); });
    shoot(QStringLiteral("grid"));
    browser.setViewMode(ViewMode::list);
    open(QStringLiteral("/sdcard/Download/Archive"));
    browser.setSearchText(QStringLiteral("12"));
    shoot(QStringLiteral("filter"));
    browser.setSearchText(QStringLiteral("no such name"));
    shoot(QStringLiteral("no-results"));
    browser.setSearchText({});
}

void Tour::typePath() {
    open(QStringLiteral("/sdcard"));
    window_.browserView().actions().goTo->trigger();
    auto* edit = window_.findChild<QLineEdit*>(QStringLiteral("pathEdit"));
    edit->setText(QStringLiteral("/sdcard/D"));
    Q_EMIT edit->textEdited(edit->text());
    edit->completer()->complete();
    shoot(QStringLiteral("typed-path"));
    edit->completer()->popup()->hide();
    edit->setText(QStringLiteral("/sdcard/Documents/Taxes 2031"));
    window_.browser().goToTyped(edit->text(), [](bool) {});
    waitFor("the refused path", [this] { return window_.browser().error().has_value(); });
    shoot(QStringLiteral("wrong-path"));
    window_.browserView().currentListing().setFocus();
    window_.browser().dismissError();
}

void Tour::preview() {
    open(QStringLiteral("/sdcard/DCIM/Camera"));
    window_.browser().selectItem(window_.browser().filteredItems().at(2).id());
    window_.browserView().actions().quickLook->trigger();
    const auto shows = [this](const char* page) {
        const auto* widget =
            window_.findChild<PreviewWindow*>()->findChild<QWidget*>(QString::fromLatin1(page));
        return widget != nullptr && widget->isVisible();
    };
    waitFor("the preview of a picture", [&] { return shows("previewPicture"); });
    shoot(QStringLiteral("preview-picture"));
    window_.browserView().actions().quickLook->trigger();
    open(QStringLiteral("/sdcard/Documents/Travel"));
    selectNamed({QStringLiteral("Packing list.md")});
    window_.browserView().actions().quickLook->trigger();
    waitFor("the preview of a text", [&] { return shows("previewText"); });
    shoot(QStringLiteral("preview-text"));
    window_.browserView().actions().quickLook->trigger();
    open(QStringLiteral("/sdcard/Music/First Songs"));
    window_.browser().selectItem(window_.browser().filteredItems().at(1).id());
    window_.browserView().actions().quickLook->trigger();
    shoot(QStringLiteral("preview-facts"));
    window_.browserView().actions().quickLook->trigger();
}

void Tour::properties() {
    open(QStringLiteral("/sdcard"));
    for (const QStringList& names :
         {QStringList{QStringLiteral("Documents")},
          QStringList{QStringLiteral("DCIM"), QStringLiteral("Music")}}) {
        selectNamed(names);
        window_.browserView().actions().properties->trigger();
        auto* dialog = window_.findChild<PropertiesDialog*>();
        waitFor("the count", [dialog] { return dialog != nullptr && !dialog->isCounting(); });
        shoot(QStringLiteral("properties"));
        delete dialog;
    }
}

void Tour::edit() {
    FileBrowserViewModel& browser = window_.browser();
    open(QStringLiteral("/sdcard/Documents"));
    bool isMade = false;
    const auto made = QObject::connect(&browser, &FileBrowserViewModel::folderCreated, &window_,
                                       [&isMade] { isMade = true; });
    browser.createFolder();
    waitFor("the new folder", [&isMade] { return isMade; });
    QObject::disconnect(made);
    shoot(QStringLiteral("new-folder"));
    // The new name is taken as it stands.
    if (auto* editor = window_.browserView().currentListing().findChild<QLineEdit*>()) {
        QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QApplication::sendEvent(editor, &enter);
    }

    // The question is a dialog that runs its own loop: the picture is taken from within it.
    QTimer::singleShot(settleTime, &window_, [this] {
        if (QWidget* question = QApplication::activeModalWidget()) {
            shoot(QStringLiteral("delete-question"));
            question->close();
        }
    });
    window_.browserView().actions().remove->trigger();
}

} // namespace tessary
