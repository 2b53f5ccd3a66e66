#include "views/browser/BrowserView.h"

#include "app/LanguageManager.h"
#include "base/text/ByteCount.h"
#include "base/text/ByteFormat.h"
#include "base/text/Printable.h"
#include "views/browser/BrowserToolbar.h"
#include "views/browser/DropMark.h"
#include "views/browser/FolderNotice.h"
#include "views/common/Layouts.h"
#include "views/common/PageStack.h"
#include "views/common/TableColumns.h"
#include "views/listing/FileGridView.h"
#include "views/listing/FileTableView.h"
#include "views/listing/FolderPositions.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QDropEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QVBoxLayout>

#include <array>

namespace tessary {

namespace {

/// "3 items", and what they hold.
QString selectionText(const std::vector<FileItem>& items) {
    qint64 bytes = 0;
    bool hasFolder = false;
    for (const FileItem& item : items) {
        bytes = addByteCounts(bytes, item.size);
        hasFolder = hasFolder || item.isDirectory;
    }
    const QString count = BrowserView::tr("%Ln selected", nullptr, static_cast<int>(items.size()));
    return hasFolder ? count : QStringLiteral("%1 (%2)").arg(count, formatBytes(bytes));
}

} // namespace

BrowserView::BrowserView(FileBrowserViewModel& browser, CopyDialogs dialogs,
                         OpenLocalFile openLocalFile, std::optional<Surroundings> surroundings)
    : browser_(browser),
      surroundings_(std::move(surroundings)),
      model_(browser),
      sortMenu_(browser, model_),
      copies_(browser, std::move(dialogs), *this),
      entries_(browser,
               {[this]() -> QAbstractItemView& { return currentListing(); },
                [this] { return browser_.viewMode() == ViewMode::grid ? grid_->columns() : 1; },
                std::move(openLocalFile),
                surroundings_ ? surroundings_->favorites : FavoriteCommands{},
                surroundings_ ? surroundings_->openTab : nullptr},
               *this),
      drops_(browser, {[this](const QStringList& paths, const QString& folder,
                              EntryMimeData::Use use) { copies_.upload(paths, folder, use); },
                       [this](const EntryMimeData& entries, const QString& folder,
                              EntryMimeData::Use use) { copies_.take(entries, folder, use); }}),
      toolbar_(new BrowserToolbar(browser, actions_, drops_)),
      stack_(new PageStack),
      table_(new FileTableView(browser, model_)),
      grid_(new FileGridView(browser, model_)),
      notice_(new FolderNotice(browser, entries_)),
      status_(new QLabel),
      dropMark_(new DropMark(
          browser, drops_, [this] { return &currentListing(); }, *stack_)) {
    setObjectName(QStringLiteral("browserView"));
    setAcceptDrops(true);
    connectActions();
    connect(toolbar_, &BrowserToolbar::left, this, [this] {
        stack_->currentWidget()->setFocus();
        entries_.selectFirstFound();
    });
    notice_->setFocusPolicy(Qt::StrongFocus);
    const std::array<QWidget*, 3> pages{table_, grid_, notice_};
    for (QWidget* page : pages) {
        stack_->addWidget(page);
        page->installEventFilter(this);
        page->setContextMenuPolicy(Qt::CustomContextMenu);
        connect(page, &QWidget::customContextMenuRequested, this, &BrowserView::showContextMenu);
    }
    for (QAbstractItemView* view : std::initializer_list<QAbstractItemView*>{table_, grid_}) {
        view->viewport()->installEventFilter(this);
        connect(view, &QAbstractItemView::doubleClicked, this, &BrowserView::doubleClicked);
    }
    new FolderPositions(
        browser_, [this]() -> QAbstractItemView& { return currentListing(); }, this);
    status_->setContentsMargins(14, 5, 14, 5);
    status_->setForegroundRole(QPalette::PlaceholderText);
    status_->setObjectName(QStringLiteral("browserStatus"));

    auto* column = makeColumn(*this);
    column->addWidget(toolbar_);
    column->addWidget(stack_, 1);
    column->addWidget(status_);
    connectBrowser();
    keepTranslated(this, [this, pages] {
        for (QWidget* page : pages)
            page->setAccessibleName(tr("Files"));
        showContent();
    });
}

void BrowserView::connectActions() {
    const auto on = [this](QAction* action, auto run) {
        connect(action, &QAction::triggered, this, run);
    };
    on(actions_.back, [this] { browser_.goBack(); });
    on(actions_.forward, [this] { browser_.goForward(); });
    on(actions_.up, [this] { goUp(); });
    on(actions_.reload, [this] { browser_.reload(); });
    on(actions_.open, [this] { entries_.open(); });
    on(actions_.openInTab, [this] { entries_.openInTab(browser_.selection().entries()); });
    on(actions_.newFolder, [this] { browser_.createFolder(); });
    on(actions_.rename, [this] { entries_.rename(); });
    on(actions_.remove, [this] { entries_.remove(); });
    on(actions_.download, [this] { copies_.downloadSelected(); });
    on(actions_.uploadFiles, [this] { copies_.chooseAndUpload(&CopyDialogs::chooseFiles); });
    on(actions_.uploadFolder, [this] { copies_.chooseAndUpload(&CopyDialogs::chooseFolder); });
    on(actions_.undo, [this] { entries_.undo(); });
    on(actions_.cut, [this] { entries_.putOnClipboard(EntryMimeData::Use::move); });
    on(actions_.copy, [this] { entries_.putOnClipboard(EntryMimeData::Use::copy); });
    on(actions_.copyPath, [this] { entries_.copyPath(); });
    on(actions_.moveTo, [this] { copies_.chooseFolderAndTake(EntryMimeData::Use::move); });
    on(actions_.copyTo, [this] { copies_.chooseFolderAndTake(EntryMimeData::Use::copy); });
    on(actions_.duplicate, [this] { copies_.duplicate(); });
    on(actions_.paste, [this] { copies_.paste(); });
    on(actions_.selectAll, [this] { browser_.selection().selectAll(); });
    on(actions_.invertSelection, [this] { browser_.selection().invert(); });
    on(actions_.asList, [this] { setGrid(false); });
    on(actions_.asGrid, [this] { setGrid(true); });
    on(actions_.zoomIn, [this] { zoom(1); });
    on(actions_.zoomOut, [this] { zoom(-1); });
    on(actions_.zoomReset,
       [this] { browser_.setPictureSide(FileBrowserViewModel::normalPicture); });
    on(actions_.groupByDay,
       [this] { browser_.dayGrouping().setOn(!browser_.dayGrouping().isOn()); });
    on(actions_.selectDay, [this] { grid_->selectDay(); });
    on(actions_.showHidden, [this] { browser_.setShowsHidden(!browser_.showsHidden()); });
    on(actions_.favorite, [this] { entries_.toggleFavorite(); });
    on(actions_.preview, [this] { entries_.preview(); });
    on(actions_.properties, [this] { entries_.showProperties(); });
    if (surroundings_) {
        on(actions_.apps, surroundings_->showApps);
        on(actions_.sync, [this] { surroundings_->showSync(toolbar_->syncAnchor()); });
    } else {
        for (QAction* action : {actions_.openInTab, actions_.download, actions_.uploadFiles,
                                actions_.uploadFolder, actions_.sync, actions_.favorite})
            action->setVisible(false);
    }
    table_->addAction(actions_.preview);
    grid_->addAction(actions_.preview);
}

void BrowserView::connectBrowser() {
    using Browser = FileBrowserViewModel;
    for (auto changed :
         {&Browser::stateChanged, &Browser::viewModeChanged, &Browser::connectionChanged,
          &Browser::problemChanged, &Browser::searchTextChanged, &Browser::showsHiddenChanged,
          &Browser::searchedNameChanged})
        connect(&browser_, changed, this, &BrowserView::showContent);
    for (auto changed : {&Browser::pathChanged, &Browser::historyChanged})
        connect(&browser_, changed, this, &BrowserView::updateActions);
    connect(&browser_, &Browser::editingChanged, this, &BrowserView::showStatus);
    connect(&browser_.selection(), &EntrySelection::changed, this, &BrowserView::showStatus);
    connect(&browser_.dayGrouping(), &DayGrouping::changed, this, &BrowserView::updateActions);
    connect(&browser_.changes(), &EntryChanges::undoableChanged, this, &BrowserView::updateActions);
    connect(&model_, &QAbstractItemModel::modelReset, this, &BrowserView::showContent);
    connect(&model_, &QAbstractItemModel::rowsInserted, this, &BrowserView::showContent);
    connect(&model_, &QAbstractItemModel::rowsRemoved, this, &BrowserView::showContent);
    connect(&browser_, &FileBrowserViewModel::folderCreated, this, [this](const QString& id) {
        QAbstractItemView& view = currentListing();
        const QModelIndex index = model_.indexOf(id);
        view.scrollTo(index);
        view.setFocus();
        view.edit(index);
    });
}

QAbstractItemView& BrowserView::currentListing() const {
    if (browser_.viewMode() == ViewMode::grid)
        return *grid_;
    return *table_;
}

QMenu& BrowserView::columnMenu() const {
    return table_->columns().menu();
}

TableColumns& BrowserView::columns() const {
    return table_->columns();
}

void BrowserView::showContent() {
    if (notice_->takeState())
        showPage(*notice_);
    else
        showPage(currentListing());
    showStatus();
}

/// The keys stay with what is shown, whatever that is.
void BrowserView::showPage(QWidget& page) {
    const QWidget* focus = window()->focusWidget();
    const bool hadFocus =
        focus != nullptr && (focus == stack_ || stack_->isAncestorOf(focus)) && focus != &page;
    stack_->setCurrentWidget(&page);
    stack_->setFocusProxy(&page);
    if (hadFocus && !page.isAncestorOf(focus))
        page.setFocus();
}

void BrowserView::showStatus() {
    const auto shown = static_cast<qsizetype>(model_.rowCount());
    const qsizetype inAll = browser_.unfilteredCount();
    QString text = shown == inAll ? tr("%Ln items", nullptr, static_cast<int>(inAll))
                                  : tr("%1 of %Ln items", nullptr, static_cast<int>(inAll))
                                        .arg(QLocale().toString(shown));
    if (const auto selected = browser_.selection().entries(); !selected.empty())
        text += QStringLiteral("  ·  ") + selectionText(selected);
    if (browser_.isEditing())
        text += QStringLiteral("  ·  ") + tr("%1 of %2 done (Esc stops)")
                                              .arg(browser_.editProgress().done)
                                              .arg(browser_.editProgress().total);
    else if (browser_.isLoading())
        text += QStringLiteral("  ·  ") +
                (browser_.searchedName().isEmpty() ? tr("reading…") : tr("searching…")) +
                (browser_.canCancelLoading() ? QLatin1Char(' ') + tr("(Esc stops)") : QString());
    else if (browser_.unreadableCount() > 0)
        text += QStringLiteral("  ·  ") + FolderNotice::unreadableText(browser_.unreadableCount());
    status_->setText(browser_.state() == BrowserState::ready ? text : QString());
    updateActions();
}

/// Above the documents of an app are the apps, above all else is the phone itself.
void BrowserView::goUp() {
    if (browser_.canNavigateUp())
        browser_.navigateUp();
    else if (isInApp() && !browser_.isMedia())
        surroundings_->showApps();
    else
        browser_.showPhone();
}

void BrowserView::doubleClicked() {
    const auto selected = browser_.selection().entries();
    const bool isFile = selected.size() == 1 && !selected.front().isDirectory;
    switch (isFile && surroundings_ ? surroundings_->fileClick() : FileClick::opens) {
    case FileClick::opens:
        entries_.open();
        break;
    case FileClick::previews:
        entries_.preview();
        break;
    case FileClick::copies:
        copies_.downloadSelected();
        break;
    }
}

bool BrowserView::isInApp() const {
    const auto& device = browser_.activeDevice();
    return device && device->platform == DevicePlatform::iOS;
}

void BrowserView::setGrid(bool grid) {
    browser_.setViewMode(grid ? ViewMode::grid : ViewMode::list);
    (grid ? actions_.asGrid : actions_.asList)->setChecked(true);
    currentListing().setFocus();
}

void BrowserView::updateActions() {
    (browser_.viewMode() == ViewMode::grid ? actions_.asGrid : actions_.asList)->setChecked(true);
    const std::size_t selected = static_cast<std::size_t>(browser_.selection().ids().size());
    const bool isThere =
        browser_.files() != nullptr && browser_.state() != BrowserState::deviceLost;
    actions_.back->setEnabled(isThere && browser_.canGoBack());
    actions_.forward->setEnabled(isThere && browser_.canGoForward());
    // What another page covers is not changed behind it.
    const bool isUsable = isThere && isVisible();
    actions_.up->setEnabled(isUsable && (browser_.canNavigateUp() || browser_.activeDevice()));
    for (QAction* action :
         {actions_.goTo, actions_.reload, actions_.search, actions_.newFolder, actions_.uploadFiles,
          actions_.uploadFolder, actions_.paste, actions_.copyPath, actions_.selectAll,
          actions_.invertSelection, actions_.find})
        action->setEnabled(isUsable);
    actions_.rename->setEnabled(isUsable && selected == 1);
    const FileItem* only =
        selected == 1 ? browser_.itemWithId(*browser_.selection().ids().cbegin()) : nullptr;
    actions_.openInTab->setEnabled(isUsable && only != nullptr && only->isDirectory);
    for (QAction* action : {actions_.open, actions_.cut, actions_.copy, actions_.moveTo,
                            actions_.copyTo, actions_.duplicate, actions_.remove, actions_.download,
                            actions_.preview, actions_.properties})
        action->setEnabled(isUsable && selected > 0);
    actions_.showHidden->setChecked(browser_.showsHidden());
    const DayGrouping& days = browser_.dayGrouping();
    actions_.groupByDay->setEnabled(isUsable && days.isOffered());
    actions_.groupByDay->setChecked(days.isOn());
    actions_.selectDay->setEnabled(isUsable && days.isOn());
    actions_.zoomIn->setEnabled(browser_.pictureSide() < FileBrowserViewModel::largestPicture);
    actions_.zoomOut->setEnabled(browser_.pictureSide() > FileBrowserViewModel::smallestPicture);
    actions_.undo->setText(entries_.undoText());
    actions_.undo->setEnabled(isUsable && browser_.changes().undoable().has_value() &&
                              !browser_.isEditing());
    actions_.apps->setVisible(isInApp());
    const QString path = entries_.favoriteCandidate().second;
    actions_.favorite->setEnabled(isUsable && !path.isEmpty());
    actions_.favorite->setText(entries_.isFavorite(path) ? tr("Remove from Favorites")
                                                         : tr("Add to Favorites"));
}

/// A step larger or smaller, by a quarter.
void BrowserView::zoom(int steps) {
    constexpr double factor = 1.25;
    const int side = browser_.pictureSide();
    browser_.setPictureSide(qRound(steps > 0 ? side * factor : side / factor));
    updateActions();
}

void BrowserView::showContextMenu(const QPoint& position) {
    QMenu menu(this);
    entries_.addTo(menu, actions_);
    if (browser_.selection().ids().isEmpty())
        menu.addMenu(&sortMenu_);
    const auto* page = static_cast<const QWidget*>(sender());
    if (const auto* view = qobject_cast<const QAbstractScrollArea*>(page))
        page = view->viewport();
    menu.exec(page->mapToGlobal(position));
}

bool BrowserView::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress)
        return handleMouseButton(*static_cast<QMouseEvent*>(event));
    if (event->type() == QEvent::Wheel) {
        const auto& wheel = *static_cast<QWheelEvent*>(event);
        if (!wheel.modifiers().testFlag(Qt::ControlModifier) || wheel.angleDelta().y() == 0)
            return false;
        zoom(wheel.angleDelta().y() > 0 ? 1 : -1);
        return true;
    }
    // A key that the editor of a name leaves over is not meant for the listing.
    return event->type() == QEvent::KeyPress && QApplication::focusWidget() == watched &&
           handleKey(*static_cast<QKeyEvent*>(event));
}

/// The buttons at a mouse's side walk through the history, the middle one opens a tab.
bool BrowserView::handleMouseButton(const QMouseEvent& press) {
    const Qt::MouseButton button = press.button();
    if (button == Qt::MiddleButton) {
        const QModelIndex row = currentListing().indexAt(press.position().toPoint());
        entries_.openInTab(browser_.itemsWithIds({row.siblingAtColumn(FileListModel::nameColumn)
                                                      .data(FileListModel::idRole)
                                                      .toString()}));
        return true;
    }
    if (button == Qt::BackButton)
        browser_.goBack();
    else if (button == Qt::ForwardButton)
        browser_.goForward();
    return button == Qt::BackButton || button == Qt::ForwardButton;
}

/// Keys of a listing, and of the page that stands in for one.
bool BrowserView::handleKey(const QKeyEvent& key) {
    switch (key.key()) {
    case Qt::Key_Escape:
        entries_.endOne();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (key.modifiers().testFlag(Qt::AltModifier))
            return false;
        entries_.open();
        return true;
    case Qt::Key_Backspace:
        goUp();
        return true;
    case Qt::Key_Down:
    case Qt::Key_Up:
    case Qt::Key_Left:
    case Qt::Key_Right:
        // The first arrow key selects the entry that the keyboard is on, before any moves it.
        if (!browser_.selection().ids().isEmpty() || key.modifiers() != Qt::NoModifier ||
            model_.rowCount() == 0)
            return false;
        if (const QModelIndex index = currentListing().currentIndex(); index.isValid())
            browser_.selection().select(index.siblingAtColumn(FileListModel::nameColumn)
                                            .data(FileListModel::idRole)
                                            .toString());
        else
            browser_.selection().select(model_.index(0, 0).data(FileListModel::idRole).toString());
        return true;
    default:
        return false;
    }
}

bool BrowserView::event(QEvent* event) {
    const bool isDone = QWidget::event(event);
    if (event->type() == QEvent::Show || event->type() == QEvent::Hide)
        updateActions();
    return isDone;
}

/// The files have the keys. A focus proxy would make the Tab key pass by the toolbar.
void BrowserView::focusInEvent(QFocusEvent* event) {
    stack_->currentWidget()->setFocus(event->reason());
}

void BrowserView::dragEnterEvent(QDragEnterEvent* event) {
    if (drops_.isUsable(*event))
        event->acceptProposedAction();
}

void BrowserView::dragMoveEvent(QDragMoveEvent* event) {
    if (dropMark_->follow(*event))
        status_->setText(tr("Into “%1”").arg(printable(dropMark_->targetName())));
    else
        showStatus();
}

void BrowserView::dragLeaveEvent(QDragLeaveEvent* event) {
    dropMark_->hide();
    showStatus();
    QWidget::dragLeaveEvent(event);
}

void BrowserView::dropEvent(QDropEvent* event) {
    dropMark_->hide();
    showStatus();
    drops_.drop(*event, dropMark_->folderUnder(event->position().toPoint()));
    if (event->isAccepted())
        setFocus(); // what is pressed next, as Undo, is meant for what came here
}

} // namespace tessary
