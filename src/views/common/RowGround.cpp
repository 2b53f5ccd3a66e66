#include "views/common/RowGround.h"

#include <QPainter>
#include <QStyleOptionViewItem>

#include <algorithm>

namespace tessary {

void paintRowGround(QPainter& painter, const QStyleOptionViewItem& option, const QRect& place,
                    int radius, RowSelection selection) {
    constexpr float hoverShare = 0.12F;
    constexpr float tintShare = 0.24F;
    const bool isSelected = (option.state & QStyle::State_Selected) != 0;
    if ((option.state & QStyle::State_HasFocus) != 0) {
        // Where the keyboard is; around the ground, which may have the same colour.
        painter.setPen(QPen(option.palette.color(QPalette::WindowText), 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(place).adjusted(-1.5, -0.5, 1.5, 0.5), radius, radius);
    }
    if (!isSelected && (option.state & QStyle::State_MouseOver) == 0)
        return;
    QColor ground = option.palette.color(QPalette::Highlight);
    const float selectedShare = selection == RowSelection::solid ? 1.0F : tintShare;
    ground.setAlphaF(isSelected ? selectedShare : hoverShare);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawRoundedRect(place, radius, radius);
}

void paintBar(QPainter& painter, const QRectF& bar, double share, const QColor& text,
              const QColor& colour) {
    const double radius = bar.height() / 2;
    QColor trough = text;
    trough.setAlphaF(0.14F);
    painter.setPen(Qt::NoPen);
    painter.setBrush(trough);
    painter.drawRoundedRect(bar, radius, radius);
    if (share <= 0)
        return;
    QRectF filled = bar;
    filled.setWidth(std::max(bar.height(), bar.width() * share));
    painter.setBrush(colour);
    painter.drawRoundedRect(filled, radius, radius);
}

} // namespace tessary
