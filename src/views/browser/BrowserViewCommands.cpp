// What a browser view can be told to do: its toolbar, menus and the commands behind them.

#include "app/LanguageManager.h"
#include "base/text/Printable.h"
#include "views/browser/BreadcrumbBar.h"
#include "views/browser/BrowserView.h"
#include "views/browser/FileViews.h"
#include "views/common/PlaceholderView.h"
#include "views/common/PlainText.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QToolButton>

namespace tessary {

void BrowserView::connectActions() {
    const auto on = [this](QAction* action, auto run) {
        connect(action, &QAction::triggered, this, run);
    };
    on(actions_.back, [this] { browser_.goBack(); });
    on(actions_.forward, [this] { browser_.goForward(); });
    on(actions_.up, [this] { browser_.navigateUp(); });
    on(actions_.goTo, [this] { breadcrumbs_->startTyping(); });
    on(actions_.reload, [this] { browser_.reload(); });
    on(actions_.open, [this] { openSelected(); });
    on(actions_.newFolder, [this] { browser_.createFolder(); });
    on(actions_.rename, [this] { renameSelected(); });
    on(actions_.remove, [this] { removeSelected(); });
    on(actions_.download, [this] { downloadSelected(); });
    on(actions_.uploadFiles, [this] {
        const auto isStillHere = shownHere();
        const QStringList files = dialogs_.chooseFiles(this);
        if (!files.isEmpty() && isStillHere())
            upload(files);
    });
    on(actions_.uploadFolder, [this] {
        const auto isStillHere = shownHere();
        const QString folder = dialogs_.chooseFolder(this);
        if (!folder.isEmpty() && isStillHere())
            upload({folder});
    });
    on(actions_.selectAll, [this] { browser_.selectAll(); });
    on(actions_.find, [this] {
        filter_->setFocus();
        filter_->selectAll();
    });
    on(actions_.asList, [this] { setGrid(false); });
    on(actions_.asGrid, [this] { setGrid(true); });
    on(actions_.favorite, [this] {
        const auto [name, path] = favoriteCandidate();
        if (!path.isEmpty() && favorites_.toggle)
            favorites_.toggle(name, path);
    });
    on(actions_.apps, [this] {
        if (showApps_)
            showApps_();
    });
    on(actions_.sync, [this] {
        if (showSync_)
            showSync_(*syncButton_);
    });
    on(actions_.quickLook, [this] { quickLook(); });
    on(actions_.properties, [this] { showProperties(); });
    table_->addAction(actions_.quickLook);
    grid_->addAction(actions_.quickLook);
}

QWidget* BrowserView::makeToolbar() {
    filter_->setObjectName(QStringLiteral("filter"));
    filter_->setClearButtonEnabled(true);
    filter_->setFixedWidth(190);
    filter_->installEventFilter(this);
    connect(filter_, &QLineEdit::textChanged, this,
            [this](const QString& text) { browser_.setSearchText(text); });
    breadcrumbs_->setOnChosen([this](const QString& path) {
        if (path.isEmpty())
            actions_.apps->trigger();
        else
            browser_.navigateTo(path);
    });
    breadcrumbs_->setTyping(
        {[this] { return browser_.currentPath(); },
         [this](const QString& typed) { return browser_.pathCompletions(typed); },
         [this](const QString& typed) {
             browser_.goToTyped(typed, [this](bool isThere) {
                 if (isThere)
                     breadcrumbs_->stopTyping();
             });
         },
         [this] { browser_.dismissError(); }, [this] { currentListing().setFocus(); }});

    auto* uploadButton = makeToolButton(*actions_.uploadFiles);
    auto* uploadMenu = new QMenu(uploadButton);
    uploadMenu->addAction(actions_.uploadFiles);
    uploadMenu->addAction(actions_.uploadFolder);
    uploadButton->setMenu(uploadMenu);
    uploadButton->setPopupMode(QToolButton::MenuButtonPopup);

    auto* bar = new QWidget;
    bar->setObjectName(QStringLiteral("toolbar"));
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(8, 6, 10, 6);
    row->setSpacing(2);
    for (QAction* action : {actions_.back, actions_.forward, actions_.up})
        row->addWidget(makeToolButton(*action));
    row->addSpacing(6);
    row->addWidget(breadcrumbs_, 1);
    row->addSpacing(6);
    for (QAction* action : {actions_.newFolder, actions_.download})
        row->addWidget(makeToolButton(*action));
    row->addWidget(uploadButton);
    syncButton_ = makeToolButton(*actions_.sync);
    row->addWidget(syncButton_);
    row->addSpacing(8);
    auto* modes = new QWidget;
    keepTranslated(modes, [modes] { modes->setAccessibleName(tr("View Mode")); });
    auto* modeRow = new QHBoxLayout(modes);
    modeRow->setContentsMargins(0, 0, 0, 0);
    modeRow->setSpacing(2);
    modeRow->addWidget(makeToolButton(*actions_.asList));
    modeRow->addWidget(makeToolButton(*actions_.asGrid));
    row->addWidget(modes);
    row->addSpacing(8);
    row->addWidget(filter_);
    return bar;
}

void BrowserView::updateActions() {
    (browser_.viewMode() == ViewMode::grid ? actions_.asGrid : actions_.asList)->setChecked(true);
    const std::size_t selected = static_cast<std::size_t>(browser_.selectedItems().size());
    const bool isUsable =
        browser_.files() != nullptr && browser_.state() != BrowserState::deviceLost;
    actions_.back->setEnabled(isUsable && browser_.canGoBack());
    actions_.forward->setEnabled(isUsable && browser_.canGoForward());
    actions_.up->setEnabled(isUsable && browser_.canNavigateUp());
    for (QAction* action :
         {actions_.goTo, actions_.reload, actions_.newFolder, actions_.uploadFiles,
          actions_.uploadFolder, actions_.selectAll, actions_.find})
        action->setEnabled(isUsable);
    for (QAction* action : {actions_.open, actions_.rename})
        action->setEnabled(isUsable && selected == 1);
    for (QAction* action :
         {actions_.remove, actions_.download, actions_.quickLook, actions_.properties})
        action->setEnabled(isUsable && selected > 0);
    actions_.apps->setVisible(isInApp());
    const QString path = favoriteCandidate().second;
    const bool isFavorite = favorites_.contains && favorites_.contains(path);
    actions_.favorite->setEnabled(isUsable && !path.isEmpty());
    actions_.favorite->setText(isFavorite ? tr("Remove from Favorites") : tr("Add to Favorites"));
}

void BrowserView::renameSelected() {
    const QStringList ids = selectedIds();
    if (ids.size() != 1)
        return;
    QAbstractItemView& view = currentListing();
    const QModelIndex index = model_.indexOf(ids.front());
    view.setCurrentIndex(index);
    view.edit(index);
}

std::function<bool()> BrowserView::shownHere() {
    const auto identity = [this] {
        return browser_.files() == nullptr ? QString() : browser_.files()->identity();
    };
    return [this, identity, files = identity(), path = browser_.currentPath()] {
        const bool isHere = files == identity() && path == browser_.currentPath();
        if (!isHere)
            browser_.showError(
                {QStringLiteral("Another folder is shown by now. Nothing was done."), {}});
        return isHere;
    };
}

void BrowserView::removeSelected() {
    const auto selected = browser_.selectedEntries();
    if (selected.empty())
        return;
    QMessageBox question(QMessageBox::Warning, tr("Delete"), tr("Delete selected items?"),
                         QMessageBox::NoButton, this);
    const QString what =
        selected.size() == 1
            ? tr("“%1” will be deleted from the phone.").arg(printable(selected.front().name))
            : tr("%Ln items will be deleted from the phone.", nullptr,
                 static_cast<int>(selected.size()));
    question.setInformativeText(what + QLatin1Char(' ') + tr("This cannot be undone."));
    QAbstractButton* remove = question.addButton(tr("Delete"), QMessageBox::DestructiveRole);
    question.setDefaultButton(question.addButton(QMessageBox::Cancel));
    makePlain(question);
    const QStringList ids = selectedIds();
    const auto isStillHere = shownHere();
    question.exec();
    if (question.clickedButton() == remove && isStillHere())
        browser_.deleteItems(ids);
}

void BrowserView::showContextMenu(const QPoint& position) {
    QMenu menu(this);
    if (browser_.selectedItems().isEmpty()) {
        for (QAction* action : {actions_.newFolder, actions_.uploadFiles, actions_.uploadFolder})
            menu.addAction(action);
        menu.addSeparator();
        menu.addAction(actions_.favorite);
        menu.addAction(actions_.reload);
    } else {
        const auto selected = browser_.selectedEntries();
        if (selected.size() == 1 && selected.front().isDirectory)
            menu.addAction(actions_.open);
        menu.addAction(actions_.quickLook);
        menu.addAction(actions_.download);
        if (selected.size() == 1 && selected.front().isDirectory)
            menu.addAction(actions_.favorite);
        menu.addSeparator();
        menu.addAction(actions_.rename);
        menu.addAction(actions_.remove);
        menu.addSeparator();
        menu.addAction(actions_.properties);
    }
    if (const auto* view = qobject_cast<QAbstractScrollArea*>(sender()))
        menu.exec(view->viewport()->mapToGlobal(position));
    else
        menu.exec(placeholder_->mapToGlobal(position));
}

} // namespace tessary
