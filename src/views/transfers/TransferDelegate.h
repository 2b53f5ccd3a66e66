#pragma once

#include <QStyledItemDelegate>

#include <functional>

namespace tessary {

/// Draws a transfer of TransferListModel: direction, name, progress bar, what there is to say, and
/// a button that cancels it.
class TransferDelegate : public QStyledItemDelegate {
public:
    /// `onCancel` is called with the index whose button was clicked.
    explicit TransferDelegate(std::function<void(const QModelIndex&)> onCancel,
                              QObject* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override;
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;

private:
    std::function<void(const QModelIndex&)> onCancel_;
};

} // namespace tessary
