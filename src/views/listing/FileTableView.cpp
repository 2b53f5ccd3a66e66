#include "views/listing/FileTableView.h"

#include "views/common/TableColumns.h"
#include "views/listing/FileItemDelegate.h"

#include <QHeaderView>
#include <QPainter>

#include <algorithm>

namespace tessary {

namespace {

using Name = QLatin1StringView;

constexpr int roomForKinds = 560; // pixels of a list that shows them; icons tell them elsewhere
constexpr int roomForDates = 420; // the same
constexpr int roomForSizes = 220; // the same

} // namespace

FileTableView::FileTableView(FileBrowserViewModel& browser, FileListModel& model, QWidget* parent)
    : ListingView(
          browser, [this](const QRect& content) { return rowsIn(content); }, parent),
      columns_(nullptr) {
    setObjectName(QStringLiteral("fileTable"));
    setUpListing(*this, model, browser, new FileItemDelegate(this));
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
    header()->setHighlightSections(false);
    header()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    // What a search has found lies in many folders: then their column stands where the kinds do.
    const auto isSearch = [this] { return !browser_.searchedName().isEmpty(); };
    columns_ = new TableColumns(
        *this, {{FileListModel::sizeColumn, Name("size"), 110, roomForSizes},
                {FileListModel::dateColumn, Name("date"), 170, roomForDates},
                {FileListModel::kindColumn, Name("kind"), 130, roomForKinds, true,
                 [isSearch] { return !isSearch(); }},
                {FileListModel::folderColumn, Name("folder"), 230, 0, false, isSearch}});
    connect(&browser, &FileBrowserViewModel::searchedNameChanged, columns_, &TableColumns::fit);
}

void FileTableView::resizeEvent(QResizeEvent* event) {
    QTreeView::resizeEvent(event);
    columns_->fit();
}

void FileTableView::fitPictures() {
    constexpr int share = 4; // of what the grid shows
    constexpr int smallest = 16;
    const int side = std::max(browser_.pictureSide() / share, smallest);
    setIconSize({side, side});
    scheduleDelayedItemsLayout();
}

/// On the picture or the letters of a name.
bool FileTableView::isOnName(const QPoint& place) const {
    const QModelIndex index = indexAt(place);
    if (index.column() != FileListModel::nameColumn)
        return false;
    constexpr int around = 12; // pixels before, between and after the two
    const int width = iconSize().width() + around +
                      fontMetrics().horizontalAdvance(index.data(Qt::DisplayRole).toString());
    return place.x() < visualRect(index).left() + width;
}

/// Whoever has selected several may take hold of them anywhere.
bool FileTableView::isHold(const QPoint& place) const {
    return isOnName(place) || selectionModel()->isSelected(indexAt(place));
}

QItemSelection FileTableView::rowsIn(const QRect& content) const {
    const int rows = model()->rowCount();
    const int height = rows == 0 ? 0 : rowHeight(model()->index(0, 0));
    if (height == 0 || content.left() >= header()->length() || content.bottom() < 0 ||
        content.top() >= rows * height)
        return {};
    const int first = std::max(content.top(), 0) / height;
    const int last = std::min(content.bottom() / height, rows - 1);
    return {model()->index(first, FileListModel::nameColumn),
            model()->index(last, FileListModel::nameColumn)};
}

void FileTableView::paintEvent(QPaintEvent* event) {
    QTreeView::paintEvent(event);
    QPainter painter(viewport());
    band_.paint(painter);
}

} // namespace tessary
