#include "views/browser/BrowserView.h"

#include "app/LanguageManager.h"
#include "app/Translations.h"
#include "app/texts/DisplayNames.h"
#include "base/text/ByteCount.h"
#include "base/text/ByteFormat.h"
#include "base/text/Printable.h"
#include "views/browser/BreadcrumbBar.h"
#include "views/browser/FileViews.h"
#include "views/common/PlaceholderView.h"
#include "views/dialogs/PreviewWindow.h"
#include "views/dialogs/PropertiesDialog.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QStackedWidget>
#include <QToolButton>

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

BrowserView::BrowserView(FileBrowserViewModel& browser, Dialogs dialogs, QWidget* parent)
    : QWidget(parent),
      browser_(browser),
      dialogs_(std::move(dialogs)),
      model_(browser),
      breadcrumbs_(new BreadcrumbBar),
      filter_(new QLineEdit),
      stack_(new QStackedWidget),
      table_(new FileTableView(browser, model_)),
      grid_(new FileGridView(browser, model_)),
      placeholder_(new PlaceholderView),
      status_(new QLabel) {
    setObjectName(QStringLiteral("browserView"));
    setAcceptDrops(true);
    connectActions();
    for (QWidget* page : {static_cast<QWidget*>(table_), static_cast<QWidget*>(grid_),
                          static_cast<QWidget*>(placeholder_)})
        stack_->addWidget(page);
    for (QAbstractItemView* view :
         {static_cast<QAbstractItemView*>(table_), static_cast<QAbstractItemView*>(grid_)}) {
        connectSelection(*view, model_, browser_);
        view->installEventFilter(this);
        connect(view, &QAbstractItemView::doubleClicked, this, &BrowserView::openSelected);
        connect(view, &QWidget::customContextMenuRequested, this, &BrowserView::showContextMenu);
    }
    placeholder_->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(placeholder_, &QWidget::customContextMenuRequested, this,
            &BrowserView::showContextMenu);
    status_->setContentsMargins(14, 5, 14, 5);
    status_->setForegroundRole(QPalette::PlaceholderText);
    status_->setObjectName(QStringLiteral("browserStatus"));

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(makeToolbar());
    column->addWidget(stack_, 1);
    column->addWidget(status_);
    connectBrowser();
    keepTranslated(this, [this] { showTexts(); });
}

void BrowserView::showTexts() {
    filter_->setPlaceholderText(tr("Filter…"));
    filter_->setAccessibleName(tr("Filter…"));
    if (auto* clear = filter_->findChild<QToolButton*>())
        clear->setAccessibleName(tr("Clear the Filter"));
    breadcrumbs_->setAccessibleName(tr("Path"));
    table_->setAccessibleName(tr("Files"));
    grid_->setAccessibleName(tr("Files"));
    showPath();
    showContent();
}

void BrowserView::connectBrowser() {
    const auto on = [this](auto signal, void (BrowserView::*slot)()) {
        connect(&browser_, signal, this, slot);
    };
    on(&FileBrowserViewModel::pathChanged, &BrowserView::showPath);
    on(&FileBrowserViewModel::stateChanged, &BrowserView::showContent);
    on(&FileBrowserViewModel::viewModeChanged, &BrowserView::showContent);
    on(&FileBrowserViewModel::connectionChanged, &BrowserView::showContent);
    on(&FileBrowserViewModel::connectionChanged, &BrowserView::showPath);
    on(&FileBrowserViewModel::errorChanged, &BrowserView::showContent);
    on(&FileBrowserViewModel::selectionChanged, &BrowserView::showStatus);
    on(&FileBrowserViewModel::historyChanged, &BrowserView::updateActions);
    on(&FileBrowserViewModel::editingChanged, &BrowserView::showStatus);
    connect(&model_, &QAbstractItemModel::modelReset, this, &BrowserView::showContent);
    connect(&model_, &QAbstractItemModel::rowsInserted, this, &BrowserView::showContent);
    connect(&model_, &QAbstractItemModel::rowsRemoved, this, &BrowserView::showContent);
    connect(&browser_, &FileBrowserViewModel::searchTextChanged, this, [this] {
        if (filter_->text() != browser_.searchText())
            filter_->setText(browser_.searchText());
        showContent();
    });
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

QHeaderView& BrowserView::columns() const {
    return *table_->header();
}

void BrowserView::showPath() {
    std::vector<Breadcrumb> path;
    if (isInApp())
        path.push_back({printable(browser_.appName()), {}});
    // The root has a name of ours, or the phone's.
    for (const PathComponent& part : browser_.breadcrumbs())
        path.push_back(
            {printable(&part == &browser_.breadcrumbs().front() ? placeDisplayName(part.name)
                                                                : part.name),
             part.path});
    breadcrumbs_->setPath(std::move(path));
    updateActions();
}

void BrowserView::showContent() {
    const bool isEmpty = model_.rowCount() == 0;
    const auto words = browser_.error().value_or(ErrorAdvice{});
    const auto page = [this](QWidget* widget) { stack_->setCurrentWidget(widget); };
    switch (browser_.state()) {
    case BrowserState::deviceLost:
        placeholder_->show(QStringLiteral("smartphone"), tr("The phone is gone"),
                           isInApp()
                               ? tr("Plug the phone in again and unlock it.")
                               : tr("Plug it in again, unlock it and choose File transfer on it."));
        page(placeholder_);
        break;
    case BrowserState::folderGone:
        if (favorites_.contains && favorites_.contains(browser_.currentPath())) {
            placeholder_->show(
                QStringLiteral("folder"), tr("Folder Not Found"),
                tr("This folder could not be found on the device. It may have been deleted or "
                   "moved. Would you like to remove it from your Favorites?"),
                tr("Remove from Favorites"), [this] {
                    favorites_.toggle({}, browser_.currentPath());
                    browser_.navigateUp();
                });
            placeholder_->addChoice(tr("Keep"), [this] { browser_.navigateUp(); });
        } else {
            placeholder_->show(QStringLiteral("folder"), tr("Folder Not Found"),
                               tr("It may have been deleted or moved on the phone."),
                               tr("Parent Folder"), [this] { browser_.navigateUp(); });
        }
        page(placeholder_);
        break;
    case BrowserState::failed:
        placeholder_->show(QStringLiteral("dialog-error"), tr("Connection Failed"),
                           printable(trMessage(words.message)) + QLatin1Char('\n') +
                               trMessage(words.advice),
                           tr("Retry"), [this] { browser_.reload(); });
        page(placeholder_);
        break;
    case BrowserState::ready:
        if (!isEmpty) {
            page(&currentListing());
        } else if (browser_.isLoading()) {
            placeholder_->show(QStringLiteral("folder"),
                               isInApp() ? tr("Loading directory contents…")
                                         : tr("Loading device storage…"),
                               {}, {}, {}, true);
            page(placeholder_);
        } else if (!browser_.searchText().trimmed().isEmpty() && !browser_.items().empty()) {
            placeholder_->show(QStringLiteral("edit-find"), tr("No Matching Files"),
                               tr("Nothing here has “%1” in its name.")
                                   .arg(printable(browser_.searchText().trimmed())),
                               tr("Clear the Filter"), [this] { filter_->clear(); });
            page(placeholder_);
        } else {
            placeholder_->show(QStringLiteral("folder"), tr("This folder is empty"),
                               tr("Drop files here to copy them to the phone."));
            page(placeholder_);
        }
        break;
    }
    showStatus();
}

void BrowserView::showStatus() {
    const auto shown = static_cast<qsizetype>(model_.rowCount());
    const auto inAll = static_cast<qsizetype>(browser_.items().size());
    QString text = shown == inAll ? tr("%Ln items", nullptr, static_cast<int>(inAll))
                                  : tr("%1 of %Ln items", nullptr, static_cast<int>(inAll))
                                        .arg(QLocale().toString(shown));
    if (const auto selected = browser_.selectedEntries(); !selected.empty())
        text += QStringLiteral("  ·  ") + selectionText(selected);
    if (browser_.isEditing())
        text += QStringLiteral("  ·  ") + tr("%1 of %2 done (Esc stops)")
                                              .arg(browser_.editProgress().done)
                                              .arg(browser_.editProgress().total);
    else if (browser_.isLoading())
        text += QStringLiteral("  ·  ") + tr("reading…");
    status_->setText(browser_.state() == BrowserState::ready ? text : QString());
    updateActions();
}

void BrowserView::setShowApps(std::function<void()> showApps) {
    showApps_ = std::move(showApps);
}

void BrowserView::setShowSync(std::function<void(const QWidget& anchor)> showSync) {
    showSync_ = std::move(showSync);
}

bool BrowserView::isInApp() const {
    const auto& device = browser_.activeDevice();
    return device && device->platform == DevicePlatform::iOS;
}

void BrowserView::setFavorites(Favorites favorites) {
    favorites_ = std::move(favorites);
    updateActions();
}

/// Name and path of the folder that a favorite would be made of: the selected one, or the one
/// shown; empty when something else is selected.
std::pair<QString, QString> BrowserView::favoriteCandidate() const {
    const auto selected = browser_.selectedEntries();
    if (selected.size() == 1 && selected.front().isDirectory)
        return {selected.front().name, browser_.files()->canonicalPath(selected.front().path)};
    if (!selected.empty() || browser_.breadcrumbs().empty())
        return {};
    return {browser_.breadcrumbs().back().name, browser_.currentPath()};
}

void BrowserView::setGrid(bool grid) {
    browser_.setViewMode(grid ? ViewMode::grid : ViewMode::list);
    (grid ? actions_.asGrid : actions_.asList)->setChecked(true);
    currentListing().setFocus();
}

void BrowserView::quickLook() {
    if (preview_ == nullptr)
        preview_ = new PreviewWindow(
            browser_,
            [this] { return browser_.viewMode() == ViewMode::grid ? grid_->columns() : 1; }, this);
    preview_->toggle();
}

void BrowserView::showProperties() {
    const auto selected = browser_.selectedEntries();
    if (!selected.empty() && browser_.files())
        (new PropertiesDialog(browser_.files(), selected, this))->show();
}

QStringList BrowserView::selectedIds() const {
    QStringList ids;
    for (const FileItem& item : browser_.selectedEntries())
        ids.append(item.id());
    return ids;
}

void BrowserView::openSelected() {
    const auto selected = browser_.selectedEntries();
    if (selected.size() == 1 && selected.front().isDirectory)
        browser_.enterFolder(selected.front().id());
}

bool BrowserView::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (watched == filter_) {
        if (key == Qt::Key_Escape)
            filter_->clear();
        if (key == Qt::Key_Escape || key == Qt::Key_Return || key == Qt::Key_Down)
            currentListing().setFocus();
        return false;
    }
    // A key that the editor of a name leaves over is not meant for the listing.
    if (QApplication::focusWidget() != watched)
        return false;
    if (key == Qt::Key_Escape && browser_.isEditing()) {
        browser_.cancelEdits();
        return true;
    }
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        openSelected();
        return true;
    }
    if (key == Qt::Key_Backspace) {
        browser_.navigateUp();
        return true;
    }
    return false;
}

} // namespace tessary
