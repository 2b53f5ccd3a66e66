#pragma once

#include "views/listing/FileItemDelegate.h"

namespace tessary {

/// Draws the entries of a grid: a picture, and below it the name on up to three lines, of which the
/// last is cut in its middle. What is selected stands on a ground that leaves the picture its own
/// colours.
class GridItemDelegate : public FileItemDelegate {
    Q_OBJECT

public:
    using FileItemDelegate::FileItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    /// A whole cell of the grid: all of a name is part of its entry.
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    /// Shows the whole name of an entry whose name is cut.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

    /// What an entry covers of its cell: its picture and its name.
    [[nodiscard]] QRect groundOf(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const;

    static constexpr int mostLines = 3;

    /// The lines that a name takes in `width` pixels; the last of `mostLines` is cut in its middle.
    /// Pure.
    [[nodiscard]] static QStringList linesOf(const QString& name, const QFont& font, int width);
};

} // namespace tessary
