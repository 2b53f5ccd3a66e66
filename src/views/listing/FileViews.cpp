#include "views/listing/FileViews.h"

#include "app/LanguageManager.h"
#include "base/text/Printable.h"
#include "views/common/Icons.h"
#include "views/listing/DragOut.h"
#include "views/listing/GridItemDelegate.h"
#include "views/listing/ThumbnailStore.h"

#include <QDrag>
#include <QHeaderView>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>

#include <algorithm>

namespace tessary {

namespace {

constexpr int narrowestColumn = 60; // pixels
constexpr int roomForKinds = 560;   // pixels of a list that shows them
constexpr int roomForDates = 420;   // the same

void setUp(QAbstractItemView& view, FileListModel& model, FileItemDelegate* delegate) {
    view.setModel(&model);
    view.setItemDelegate(delegate);
    view.setSelectionMode(QAbstractItemView::ExtendedSelection);
    view.setSelectionBehavior(QAbstractItemView::SelectRows);
    view.setEditTriggers(QAbstractItemView::EditKeyPressed);
    view.setDragDropMode(QAbstractItemView::DragOnly); // drops are the browser view's
    view.setContextMenuPolicy(Qt::CustomContextMenu);
    view.setFrameShape(QFrame::NoFrame);
    view.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
}

/// Drags the selected entries, under a picture of what is dragged.
void dragSelected(QAbstractItemView& view, FileBrowserViewModel& browser) {
    std::vector<FileItem> items = browser.selection().entries();
    if (items.empty() || browser.files() == nullptr)
        return;
    const QFontMetrics metrics = view.fontMetrics();
    const QString label =
        items.size() == 1 ? metrics.elidedText(printable(items.front().name), Qt::ElideMiddle, 220)
                          : FileTableView::tr("%Ln items", nullptr, static_cast<int>(items.size()));
    const QIcon icon = fileIcon(items.front().iconName());
    constexpr int iconSize = 32;
    constexpr int margin = 8;
    const qreal ratio = view.devicePixelRatioF();
    QPixmap picture(
        (QSizeF(iconSize + metrics.horizontalAdvance(label) + 3 * margin, iconSize + 2 * margin) *
         ratio)
            .toSize());
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    {
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(view.palette().highlight());
        const QRectF ground(QPointF(0, 0), QSizeF(picture.size()) / ratio);
        painter.drawRoundedRect(ground, margin, margin);
        icon.paint(&painter, margin, margin, iconSize, iconSize);
        painter.setPen(view.palette().color(QPalette::HighlightedText));
        painter.drawText(ground.adjusted(iconSize + 2 * margin, 0, -margin, 0),
                         Qt::AlignVCenter | Qt::AlignLeft, label);
    }
    auto* drag = new QDrag(&view);
    drag->setMimeData(new DragOutData(browser, std::move(items)));
    drag->setPixmap(picture);
    drag->setHotSpot({margin, margin});
    drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::CopyAction);
}

QSet<QString> selectedIds(const QItemSelectionModel& selection) {
    QSet<QString> ids;
    for (const QModelIndex& index : selection.selectedRows(FileListModel::nameColumn))
        ids.insert(index.data(FileListModel::idRole).toString());
    return ids;
}

/// Neighbouring rows become one range: a selection of everything is one range, not 100,000.
QItemSelection rangesOf(const FileListModel& model, const QSet<QString>& ids) {
    QList<int> rows;
    for (const QString& id : ids)
        if (const QModelIndex index = model.indexOf(id); index.isValid())
            rows.append(index.row());
    std::sort(rows.begin(), rows.end());
    QItemSelection selection;
    for (qsizetype i = 0; i < rows.size();) {
        qsizetype end = i;
        while (end + 1 < rows.size() && rows[end + 1] == rows[end] + 1)
            ++end;
        selection.append(QItemSelectionRange(
            model.index(rows[i], 0), model.index(rows[end], FileListModel::columnsInAll - 1)));
        i = end + 1;
    }
    return selection;
}

} // namespace

void connectSelection(QAbstractItemView& view, FileListModel& model,
                      FileBrowserViewModel& browser) {
    QItemSelectionModel* selection = view.selectionModel();
    const auto take = [&browser, selection] {
        const QString current = selection->currentIndex()
                                    .siblingAtColumn(FileListModel::nameColumn)
                                    .data(FileListModel::idRole)
                                    .toString();
        browser.selection().set(selectedIds(*selection), current);
    };
    QObject::connect(selection, &QItemSelectionModel::selectionChanged, &browser, take);
    QObject::connect(
        &browser.selection(), &EntrySelection::changed, selection,
        [&view, &model, &browser, selection] {
            if (selectedIds(*selection) == browser.selection().ids())
                return;
            const QSignalBlocker quiet(&browser.selection());
            // First: the browser takes a selection over with the view's current entry.
            const auto current = browser.selection().currentId();
            const QModelIndex index = current ? model.indexOf(*current) : QModelIndex();
            if (index.isValid())
                selection->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
            selection->select(rangesOf(model, browser.selection().ids()),
                              QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
            if (index.isValid())
                view.scrollTo(index);
        });
}

FileTableView::FileTableView(FileBrowserViewModel& browser, FileListModel& model, QWidget* parent)
    : QTreeView(parent), browser_(browser), columnMenu_(new QMenu(this)) {
    setObjectName(QStringLiteral("fileTable"));
    setUp(*this, model, new FileItemDelegate(this));
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAlternatingRowColors(true);
    setAllColumnsShowFocus(true);
    setTextElideMode(Qt::ElideMiddle);
    setSortingEnabled(true);
    fitPictures();
    connect(&browser, &FileBrowserViewModel::pictureSideChanged, this, &FileTableView::fitPictures);
    sortByColumn(FileListModel::nameColumn, Qt::AscendingOrder);
    connect(&browser, &FileBrowserViewModel::sortOrderChanged, this, [this] {
        if (browser_.sortOrder().empty())
            return;
        const FileComparator& first = browser_.sortOrder().front();
        header()->setSortIndicator(static_cast<int>(first.field),
                                   first.descending ? Qt::DescendingOrder : Qt::AscendingOrder);
    });
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::Interactive);
    header()->setMinimumSectionSize(narrowestColumn);
    connect(header(), &QHeaderView::sectionResized, this, &FileTableView::columnResized);
    header()->setHighlightSections(false);
    header()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    const QScopedValueRollback fitting(isFittingColumns_, true);
    header()->resizeSection(FileListModel::sizeColumn, 110);
    header()->resizeSection(FileListModel::dateColumn, 170);
    header()->resizeSection(FileListModel::kindColumn, 130);
    header()->resizeSection(FileListModel::folderColumn, 230);
    setColumnHidden(FileListModel::folderColumn, true);
    connect(&browser, &FileBrowserViewModel::searchedNameChanged, this, &FileTableView::fitColumns);
    makeColumnMenu();
    showThumbnails(*this, model, browser);
}

void FileTableView::makeColumnMenu() {
    for (const int column :
         {FileListModel::sizeColumn, FileListModel::dateColumn, FileListModel::kindColumn}) {
        QAction* choice = columnMenu_->addAction(QString());
        choice->setCheckable(true);
        choice->setChecked(true);
        connect(choice, &QAction::toggled, this, [this, column](bool isWanted) {
            if (isWanted)
                unwanted_.remove(column);
            else
                unwanted_.insert(column);
            fitColumns();
        });
        keepTranslated(choice, [this, choice, column] {
            choice->setText(model()->headerData(column, Qt::Horizontal).toString());
        });
    }
    keepTranslated(columnMenu_, [this] { columnMenu_->setTitle(tr("Columns")); });
    header()->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(header(), &QWidget::customContextMenuRequested, this, [this](const QPoint& where) {
        columnMenu_->popup(header()->viewport()->mapToGlobal(where));
    });
}

/// The edge between two columns moves, and nothing else: what one gets, the next one gives.
void FileTableView::columnResized(int column, int, int) {
    if (isFittingColumns_ || header()->isSectionHidden(column))
        return;
    const QScopedValueRollback fitting(isFittingColumns_, true);
    int next = column + 1;
    while (next < header()->count() && header()->isSectionHidden(next))
        ++next;
    const int tooWide = header()->length() - viewport()->width();
    if (next < header()->count()) {
        const int given = std::min(tooWide, header()->sectionSize(next) - narrowestColumn);
        header()->resizeSection(next, header()->sectionSize(next) - given);
        header()->resizeSection(column, header()->sectionSize(column) - (tooWide - given));
    } else {
        header()->resizeSection(column, header()->sectionSize(column) - tooWide);
    }
}

/// What a search has found lies in many folders: then their column stands where the kinds do. Where
/// there is little room icons have to tell the kinds.
void FileTableView::fitColumns() {
    const bool isSearch = !browser_.searchedName().isEmpty();
    const bool isNarrow = viewport()->width() < roomForKinds;
    const QScopedValueRollback fitting(isFittingColumns_, true);
    setColumnHidden(FileListModel::folderColumn, !isSearch);
    setColumnHidden(FileListModel::sizeColumn, unwanted_.contains(FileListModel::sizeColumn));
    setColumnHidden(FileListModel::dateColumn, viewport()->width() < roomForDates ||
                                                   unwanted_.contains(FileListModel::dateColumn));
    setColumnHidden(FileListModel::kindColumn,
                    isSearch || isNarrow || unwanted_.contains(FileListModel::kindColumn));
    fitNames();
}

/// Names take the room that the other columns leave.
void FileTableView::fitNames() {
    const QScopedValueRollback fitting(isFittingColumns_, true);
    constexpr int narrowestName = 120;
    int others = 0; // hidden ones have no width
    for (int column = FileListModel::nameColumn + 1; column < header()->count(); ++column)
        others += header()->sectionSize(column);
    header()->resizeSection(FileListModel::nameColumn,
                            std::max(viewport()->width() - others, narrowestName));
}

void FileTableView::resizeEvent(QResizeEvent* event) {
    QTreeView::resizeEvent(event);
    fitColumns();
}

void FileTableView::keyboardSearch(const QString& search) {
    browser_.selection().type(search);
}

void FileTableView::mousePressEvent(QMouseEvent* event) {
    // A press beside the rows drops the selection, as in every file manager.
    if (!indexAt(event->pos()).isValid())
        clearSelection();
    QTreeView::mousePressEvent(event);
}

void FileTableView::fitPictures() {
    constexpr int share = 4; // of what the grid shows
    constexpr int smallest = 16;
    const int side = std::max(browser_.pictureSide() / share, smallest);
    setIconSize({side, side});
    scheduleDelayedItemsLayout();
}

void FileTableView::startDrag(Qt::DropActions) {
    dragSelected(*this, browser_);
}

FileGridView::FileGridView(FileBrowserViewModel& browser, FileListModel& model, QWidget* parent)
    : QListView(parent), browser_(browser) {
    setObjectName(QStringLiteral("fileGrid"));
    setUp(*this, model, new GridItemDelegate(this));
    setModelColumn(FileListModel::nameColumn);
    setViewMode(QListView::IconMode);
    setMovement(QListView::Static);
    setResizeMode(QListView::Adjust);
    setLayoutMode(QListView::Batched);
    setBatchSize(500);
    setUniformItemSizes(true);
    fitPictures();
    connect(&browser, &FileBrowserViewModel::pictureSideChanged, this, &FileGridView::fitPictures);
    setViewportMargins(8, 10, 8, 0);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    setSpacing(4);
    showThumbnails(*this, model, browser);
}

void FileGridView::fitPictures() {
    constexpr int besides = 44; // pixels for names that are wider
    constexpr int narrowest = 112;
    constexpr int above = 24;
    const int side = browser_.pictureSide();
    const int lines = GridItemDelegate::mostLines * fontMetrics().lineSpacing();
    setIconSize({side, side});
    setGridSize({std::max(side + besides, narrowest), side + lines + above});
}

int FileGridView::columns() const {
    return std::max(viewport()->width() / gridSize().width(), 1);
}

void FileGridView::keyboardSearch(const QString& search) {
    browser_.selection().type(search);
}

void FileGridView::startDrag(Qt::DropActions) {
    dragSelected(*this, browser_);
}

} // namespace tessary
