#pragma once

#include <QStyledItemDelegate>

#include <functional>

namespace tessary {

/// Draws a transfer of TransferListModel: how it stands, name, from where to where, a bar while it
/// is under way, what there is to say, and a button that cancels it or goes on with it.
class TransferDelegate : public QStyledItemDelegate {
public:
    /// Called with the index whose button was clicked.
    struct Actions {
        std::function<void(const QModelIndex&)> cancel;
        std::function<void(const QModelIndex&)> goOn;
    };

    explicit TransferDelegate(Actions actions, QObject* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override;
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;

private:
    void actOn(const QModelIndex& index) const;

    const Actions actions_;
};

} // namespace tessary
