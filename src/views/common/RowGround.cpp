#include "views/common/RowGround.h"

#include <QPainter>
#include <QStyleOptionViewItem>

namespace tessary {

void paintRowGround(QPainter& painter, const QStyleOptionViewItem& option, const QRect& place,
                    int radius) {
    constexpr float hoverShare = 0.12F;
    const bool isSelected = (option.state & QStyle::State_Selected) != 0;
    if (!isSelected && (option.state & QStyle::State_MouseOver) == 0)
        return;
    QColor ground = option.palette.color(QPalette::Highlight);
    ground.setAlphaF(isSelected ? 1.0F : hoverShare);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawRoundedRect(place, radius, radius);
}

} // namespace tessary
