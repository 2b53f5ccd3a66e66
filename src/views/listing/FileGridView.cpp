#include "views/listing/FileGridView.h"

#include "app/texts/DisplayNames.h"
#include "views/common/Layouts.h"
#include "views/listing/GridItemDelegate.h"

#include <QAccessible>
#include <QCursor>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace tessary {

namespace {

constexpr int beforeHeading = 10; // pixels, before its text
constexpr int aboveHeading = 14;  // the same, above
constexpr int belowHeading = 6;   // the same, below

} // namespace

FileGridView::FileGridView(FileBrowserViewModel& browser, FileListModel& model, QWidget* parent)
    : ListingView(
          browser,
          [this](const QRect& content) {
              QItemSelection touched;
              for (const GridLayout::Range& range : grid().entriesIn(content))
                  touched.append(selectionOf(range).first());
              return touched;
          },
          parent),
      delegate_(new GridItemDelegate(this)) {
    setObjectName(QStringLiteral("fileGrid"));
    setUpListing(*this, model, browser, delegate_);
    setModelColumn(FileListModel::nameColumn);
    setViewMode(QListView::IconMode);
    setMovement(QListView::Static);
    setSelectionRectVisible(false); // the frame is our own
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    fitPictures();
    connect(&browser, &FileBrowserViewModel::pictureSideChanged, this, &FileGridView::fitPictures);
    connect(&browser.dayGrouping(), &DayGrouping::changed, this, [this] {
        // Everything has moved: what the user was at stays in sight.
        const bool isGrouped = browser_.dayGrouping().isOn();
        if (std::exchange(wasGrouped_, isGrouped) != isGrouped)
            scrollTo(currentIndex());
    });
    setViewportMargins(8, 10, 8, 0);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    viewport()->setAttribute(Qt::WA_Hover);
}

void FileGridView::fitPictures() {
    constexpr int besides = 44; // pixels for names that are wider
    constexpr int narrowest = 112;
    constexpr int above = 24;
    const int side = browser_.pictureSide();
    const int lines = GridItemDelegate::mostLines * fontMetrics().lineSpacing();
    setIconSize({side, side});
    setGridSize({std::max(side + besides, narrowest), side + lines + above});
    doItemsLayout();
}

const GridLayout& FileGridView::grid() const {
    const FileRows& rows = browser_.rows();
    const Basis basis{rows.revision(), viewport()->width(), gridSize().expandedTo({1, 1}),
                      QFontMetrics(demiBold(font())).height() + aboveHeading + belowHeading};
    if (basis == basis_)
        return grid_;
    basis_ = basis;
    groups_ = rows.groupsByDay() ? dayGroupsOf(rows) : std::vector<DayGroup>();
    std::vector<GridLayout::Section> sections;
    for (const DayGroup& group : groups_)
        sections.push_back({group.firstRow, group.kind != DayGroup::Kind::folders});
    grid_ = GridLayout(rows.count(), std::move(sections), basis.width, basis.cell, basis.heading);
    return grid_;
}

int FileGridView::columns() const {
    return grid().columns();
}

QPoint FileGridView::inContent(const QPoint& place) const {
    return place + QPoint(0, verticalOffset());
}

QModelIndex FileGridView::nameOf(int entry) const {
    return entry < 0 ? QModelIndex() : model()->index(entry, FileListModel::nameColumn);
}

QRect FileGridView::visualRect(const QModelIndex& index) const {
    if (!index.isValid())
        return {};
    return grid().cell(index.row()).translated(0, -verticalOffset());
}

QModelIndex FileGridView::indexAt(const QPoint& place) const {
    return nameOf(grid().entryAt(inContent(place)));
}

int FileGridView::horizontalOffset() const {
    return 0;
}

int FileGridView::verticalOffset() const {
    return verticalScrollBar()->value();
}

void FileGridView::scrollTo(const QModelIndex& index, ScrollHint hint) {
    if (!index.isValid())
        return;
    updateGeometries();
    QRect cell = grid().cell(index.row());
    // The first line of a day comes with its heading.
    if (const QRect heading = grid().heading(grid().sectionAt(cell.top()));
        heading.bottom() + 1 == cell.top())
        cell.setTop(heading.top());
    const int height = viewport()->height();
    const int top = verticalOffset();
    int wanted = top;
    if (hint == PositionAtTop || (hint == EnsureVisible && cell.top() < top))
        wanted = cell.top();
    else if (hint == PositionAtBottom || (hint == EnsureVisible && cell.bottom() >= top + height))
        wanted = cell.bottom() + 1 - height;
    else if (hint == PositionAtCenter)
        wanted = cell.center().y() - height / 2;
    verticalScrollBar()->setValue(wanted);
}

void FileGridView::doItemsLayout() {
    QAbstractItemView::doItemsLayout();
}

/// At once: whoever brings a folder back to where it was scrolled to does so right after.
void FileGridView::reset() {
    QListView::reset();
    updateGeometries();
}

void FileGridView::rowsInserted(const QModelIndex& parent, int first, int last) {
    QListView::rowsInserted(parent, first, last);
    updateGeometries();
}

void FileGridView::dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                               const QList<int>& roles) {
    QAbstractItemView::dataChanged(topLeft, bottomRight, roles);
}

void FileGridView::updateGeometries() {
    constexpr int stepsOfACell = 3;
    const int beyond = grid().height() - viewport()->height();
    verticalScrollBar()->setRange(0, std::max(beyond, 0));
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setSingleStep(gridSize().height() / stepsOfACell);
    QAbstractItemView::updateGeometries();
}

void FileGridView::scrollContentsBy(int dx, int dy) {
    scrollDirtyRegion(dx, dy);
    viewport()->scroll(dx, dy);
}

void FileGridView::resizeEvent(QResizeEvent* event) {
    QAbstractItemView::resizeEvent(event);
    viewport()->update();
}

void FileGridView::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    const QRect area = event->rect().translated(0, verticalOffset());
    for (const auto& [first, last] : grid().entriesIn(area))
        for (int entry = first; entry <= last; ++entry)
            paintEntry(painter, option, entry);
    for (int section = grid().sectionAt(area.top());
         section < grid().sectionCount() && grid().heading(section).top() <= area.bottom();
         ++section)
        if (grid().heading(section).intersects(area))
            paintHeading(painter, section);
    band_.paint(painter);
}

void FileGridView::paintEntry(QPainter& painter, QStyleOptionViewItem option, int entry) const {
    const QModelIndex index = nameOf(entry);
    option.rect = visualRect(index);
    option.state.setFlag(QStyle::State_Selected, selectionModel()->isSelected(index));
    option.state.setFlag(QStyle::State_HasFocus, hasFocus() && index.row() == currentIndex().row());
    option.state.setFlag(QStyle::State_MouseOver,
                         viewport()->underMouse() &&
                             option.rect.contains(viewport()->mapFromGlobal(QCursor::pos())));
    delegate_->paint(&painter, option, index);
}

void FileGridView::paintHeading(QPainter& painter, int section) const {
    const DayGroup& group = groups_[static_cast<std::size_t>(section)];
    const auto [first, last] = grid().entriesOf(section);
    const QRect place = grid()
                            .heading(section)
                            .translated(0, -verticalOffset())
                            .adjusted(beforeHeading, aboveHeading, -beforeHeading, -belowHeading);
    painter.save();
    painter.setFont(demiBold(font()));
    painter.setPen(palette().color(QPalette::Text));
    const QString day = dayDisplayName(group.day);
    QRect used;
    painter.drawText(place, Qt::AlignLeft | Qt::AlignBottom, day, &used);
    painter.setFont(font());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    constexpr int gap = 10;
    painter.drawText(place.adjusted(used.width() + gap, 0, 0, 0), Qt::AlignLeft | Qt::AlignBottom,
                     tr("%Ln items", nullptr, last - first + 1));
    painter.restore();
}

/// On the picture or the name of an entry, or on one that is selected.
bool FileGridView::isHold(const QPoint& place) const {
    const QModelIndex index = indexAt(place);
    if (!index.isValid() || selectionModel()->isSelected(index))
        return index.isValid();
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.rect = visualRect(index);
    return delegate_->groundOf(option, index).contains(place);
}

void FileGridView::mousePressEvent(QMouseEvent* event) {
    pressedHeading_ = event->button() == Qt::LeftButton
                          ? grid().headingAt(inContent(event->position().toPoint()))
                          : -1;
    ListingView::mousePressEvent(event);
}

void FileGridView::mouseReleaseEvent(QMouseEvent* event) {
    const bool wasFrame = band_.isDrawn();
    ListingView::mouseReleaseEvent(event);
    const int heading = std::exchange(pressedHeading_, -1);
    if (wasFrame || heading < 0 ||
        heading != grid().headingAt(inContent(event->position().toPoint())))
        return;
    const bool adds = event->modifiers() & (Qt::ControlModifier | Qt::ShiftModifier);
    selectSection(heading,
                  adds ? QItemSelectionModel::Select : QItemSelectionModel::ClearAndSelect);
}

/// The base would look for its own layout to tell which entry has the keyboard.
void FileGridView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QAbstractItemView::currentChanged(current, previous);
    if (!QAccessible::isActive() || !current.isValid() || !isVisible())
        return;
    QAccessibleEvent event(this, QAccessible::Focus);
    event.setChild(current.row() * model()->columnCount() + current.column());
    QAccessible::updateAccessibility(&event);
}

QItemSelection FileGridView::selectionOf(GridLayout::Range entries) const {
    return {nameOf(entries.first), nameOf(entries.second)};
}

void FileGridView::selectSection(int section, QItemSelectionModel::SelectionFlags command) {
    const GridLayout::Range entries = grid().entriesOf(section);
    selectionModel()->select(selectionOf(entries), command | QItemSelectionModel::Rows);
    selectionModel()->setCurrentIndex(nameOf(entries.first), QItemSelectionModel::NoUpdate);
}

void FileGridView::selectDay() {
    if (grid().sectionCount() == 0)
        return;
    const int entry = std::max(currentIndex().row(), 0);
    selectSection(grid().sectionAt(grid().cell(entry).top()), QItemSelectionModel::ClearAndSelect);
}

/// The entry a page away in the same column, or the nearest to it.
int FileGridView::turnedPage(int entry, int pages) const {
    const int target = grid().cell(entry).center().y() + pages * viewport()->height();
    for (int next = entry;; entry = next) {
        next = pages > 0 ? grid().below(entry) : grid().above(entry);
        const int there = grid().cell(next).center().y();
        if (next == entry || (pages > 0 ? there > target : there < target))
            return entry;
    }
}

QModelIndex FileGridView::moveCursor(CursorAction action, Qt::KeyboardModifiers) {
    const int count = model()->rowCount();
    if (count == 0)
        return {};
    const int now = currentIndex().row();
    if (now < 0)
        return nameOf(0);
    switch (action) {
    case MoveUp:
        return nameOf(grid().above(now));
    case MoveDown:
        return nameOf(grid().below(now));
    case MoveLeft:
    case MovePrevious:
        return nameOf(std::max(now - 1, 0));
    case MoveRight:
    case MoveNext:
        return nameOf(std::min(now + 1, count - 1));
    case MoveHome:
        return nameOf(0);
    case MoveEnd:
        return nameOf(count - 1);
    case MovePageUp:
        return nameOf(turnedPage(now, -1));
    case MovePageDown:
        return nameOf(turnedPage(now, 1));
    }
    return currentIndex();
}

/// From the entry at one corner to that at the other, in their order: what keys and clicks select.
void FileGridView::setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) {
    QModelIndex from = indexAt(rect.topLeft());
    QModelIndex to = indexAt(rect.bottomRight());
    if (!from.isValid())
        from = to;
    if (!to.isValid())
        to = from;
    if (!from.isValid()) {
        selectionModel()->select(QItemSelection(), command);
        return;
    }
    const auto [first, last] = std::minmax({from.row(), to.row()});
    selectionModel()->select(selectionOf({first, last}), command);
}

QRegion FileGridView::visualRegionForSelection(const QItemSelection& selection) const {
    QRegion region;
    for (const QItemSelectionRange& range : selection) {
        if (!range.isValid())
            continue;
        const QRect first = grid().cell(range.top());
        const QRect last = grid().cell(range.bottom());
        const QRect lines(0, first.top() - verticalOffset(), viewport()->width(),
                          last.bottom() + 1 - first.top());
        region += lines.intersected(viewport()->rect());
    }
    return region;
}

} // namespace tessary
