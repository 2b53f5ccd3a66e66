#pragma once

#include <QStyledItemDelegate>

class QListView;

namespace tessary {

class ThumbnailStore;

/// Draws the rows of a PhotoListModel in a list of icons: a photo with its picture and a mark when
/// it is chosen, a day across the whole list. A click anywhere on a row, or the space key, checks
/// it.
class PhotoDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    static constexpr int pictureSide = 128; ///< pixels

    /// Both must outlive it.
    PhotoDelegate(QListView& view, ThumbnailStore& thumbnails);

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

protected:
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;

private:
    void paintDay(QPainter& painter, const QStyleOptionViewItem& option,
                  const QModelIndex& index) const;
    void paintPhoto(QPainter& painter, const QStyleOptionViewItem& option,
                    const QModelIndex& index) const;

    QListView& view_;
    ThumbnailStore& thumbnails_;
};

} // namespace tessary
