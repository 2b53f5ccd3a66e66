#pragma once

#include "browser/listing/DayGroups.h"
#include "browser/model/FileListModel.h"
#include "views/listing/GridLayout.h"
#include "views/listing/ListingView.h"

#include <QListView>

#include <vector>

namespace tessary {

class GridItemDelegate;

/// The files as a grid of pictures; grouped by day with a heading above each, a click on which
/// selects the day. Places are worked out when they are asked for, so that a hundred thousand
/// entries need no time. It is a QListView to assistive technology, which knows it as one, and for
/// its style; where its entries stand and how they are selected is its own.
class FileGridView : public ListingView<QListView> {
    Q_OBJECT

public:
    FileGridView(FileBrowserViewModel& browser, FileListModel& model, QWidget* parent = nullptr);

    /// Entries beside one another.
    [[nodiscard]] int columns() const;
    /// Selects the day of the entry that the keyboard is on.
    void selectDay();

    [[nodiscard]] QRect visualRect(const QModelIndex& index) const override;
    [[nodiscard]] QModelIndex indexAt(const QPoint& place) const override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
    void doItemsLayout() override;
    void reset() override;

protected:
    [[nodiscard]] bool isHold(const QPoint& place) const override;
    void rowsInserted(const QModelIndex& parent, int first, int last) override;
    void dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                     const QList<int>& roles) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void updateGeometries() override;
    void scrollContentsBy(int dx, int dy) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) override;
    [[nodiscard]] QRegion visualRegionForSelection(const QItemSelection& selection) const override;
    [[nodiscard]] int horizontalOffset() const override;
    [[nodiscard]] int verticalOffset() const override;

private:
    void fitPictures();
    [[nodiscard]] const GridLayout& grid() const;
    [[nodiscard]] QPoint inContent(const QPoint& place) const;
    [[nodiscard]] QModelIndex nameOf(int entry) const;
    [[nodiscard]] QItemSelection selectionOf(GridLayout::Range entries) const;
    [[nodiscard]] int turnedPage(int entry, int pages) const;
    void selectSection(int section, QItemSelectionModel::SelectionFlags command);
    void paintEntry(QPainter& painter, QStyleOptionViewItem option, int entry) const;
    void paintHeading(QPainter& painter, int section) const;

    /// What a layout was made for.
    struct Basis {
        std::uint64_t revision = 0;
        int width = 0;
        QSize cell;
        int heading = 0;

        bool operator==(const Basis&) const = default;
    };

    GridItemDelegate* delegate_;
    mutable Basis basis_;
    mutable GridLayout grid_;
    mutable std::vector<DayGroup> groups_; ///< empty without groups
    int pressedHeading_ = -1;
    bool wasGrouped_ = false;
};

} // namespace tessary
