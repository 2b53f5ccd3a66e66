#pragma once

#include <QStyledItemDelegate>

#include <functional>

namespace tessary {

struct CopyJob;

/// Draws a transfer of TransferListModel: how it stands, name, from where to where, a bar while it
/// is under way, what there is to say, and a button that cancels it or goes on with it.
class TransferDelegate : public QStyledItemDelegate {
public:
    /// `act` is called with the job whose button was clicked.
    TransferDelegate(std::function<void(const CopyJob&)> act, QObject* parent);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override;
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;

private:
    const std::function<void(const CopyJob&)> act_;
};

} // namespace tessary
