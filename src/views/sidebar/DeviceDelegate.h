#pragma once

#include <QStyledItemDelegate>

namespace tessary {

/// Draws a device of DeviceListModel: icon, name, mode and battery, storage bar.
class DeviceDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override;
};

} // namespace tessary
