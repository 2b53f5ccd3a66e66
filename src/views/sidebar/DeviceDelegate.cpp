#include "views/sidebar/DeviceDelegate.h"

#include "views/common/Icons.h"
#include "views/common/Layouts.h"
#include "views/common/RowGround.h"
#include "views/sidebar/DeviceListModel.h"

#include <QPainter>

#include <algorithm>

namespace tessary {

namespace {

constexpr int margin = 10;
constexpr int iconSize = 32;
constexpr int barHeight = 5;
constexpr QSize batterySize(21, 11);

QColor fillColour(double share, const QPalette& palette) {
    if (share > 0.95)
        return {206, 58, 58};
    if (share > 0.85)
        return {214, 140, 20};
    return palette.color(QPalette::Highlight);
}

/// A battery lying on its side, filled as far as it is charged.
void paintBattery(QPainter& painter, const QRect& place, int percent, const QColor& outline) {
    constexpr int low = 15; // percent
    const QRectF body = QRectF(place).adjusted(0.5, 0.5, -2.5, -0.5);
    painter.setPen(QPen(outline, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(body, 2, 2);
    painter.setPen(Qt::NoPen);
    painter.setBrush(outline);
    painter.drawRect(QRectF(body.right() + 1, body.center().y() - 2, 1.5, 4));
    QRectF charge = body.adjusted(1.5, 1.5, -1.5, -1.5);
    charge.setWidth(std::max(1.0, charge.width() * std::clamp(percent, 0, 100) / 100));
    painter.setBrush(percent <= low ? QColor(206, 58, 58) : outline);
    painter.drawRect(charge);
}

} // namespace

QSize DeviceDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
    const int line = option.fontMetrics.height();
    return {180, 2 * margin + 2 * line + barHeight + 12};
}

void DeviceDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const {
    const auto* model = qobject_cast<const DeviceListModel*>(index.model());
    const DeviceInfo* device = model != nullptr ? model->deviceAt(index) : nullptr;
    if (device == nullptr)
        return;
    const QPalette& palette = option.palette;
    const QColor text = palette.color(QPalette::WindowText);
    QColor faint = text;
    faint.setAlphaF(0.72F);

    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const QRect card = option.rect.adjusted(6, 2, -6, -2);
    paintRowGround(*painter, option, card, 8, RowSelection::tinted);

    const QRect inner = card.adjusted(margin, margin - 2, -margin, -(margin - 2));
    const QRect iconRect(inner.left(), inner.top() + 2, iconSize, iconSize);
    index.data(Qt::DecorationRole).value<QIcon>().paint(painter, iconRect);

    const int line = option.fontMetrics.height();
    QRect texts = inner.adjusted(iconSize + 10, 0, 0, 0);
    const QFont small = scaled(option.font, 0.88);
    const QFontMetrics smallMetrics(small);
    painter->setFont(small);
    if (device->batteryLevel) {
        const QString percent = QStringLiteral("%1 %").arg(*device->batteryLevel);
        const int width = smallMetrics.horizontalAdvance(percent);
        const QRect glyph(texts.right() - batterySize.width() + 1,
                          texts.top() + (line - batterySize.height()) / 2 + 1, batterySize.width(),
                          batterySize.height());
        painter->setPen(faint);
        painter->drawText(QRect(glyph.left() - width - 5, texts.top(), width + 1, line),
                          Qt::AlignRight | Qt::AlignVCenter, percent);
        paintBattery(*painter, glyph, *device->batteryLevel, faint);
        texts.setRight(glyph.left() - width - 12);
    }
    painter->setFont(demiBold(option.font));
    painter->setPen(text);
    painter->drawText(
        QRect(texts.left(), texts.top(), texts.width(), line), Qt::AlignLeft | Qt::AlignVCenter,
        painter->fontMetrics().elidedText(index.data().toString(), Qt::ElideRight, texts.width()));

    texts.setRight(inner.right());
    int stateTop = texts.top() + line + 4;
    if (const StorageVolume storage = device->mainStorage(); storage.totalBytes > 0) {
        const double share = storage.usageRatio();
        paintBar(*painter, QRectF(texts.left(), stateTop, texts.width(), barHeight), share, text,
                 fillColour(share, palette));
        stateTop += barHeight + 2;
    }
    if (index.data(DeviceListModel::mountedRole).toBool()) {
        const QRect mark(texts.right() - line + 1, stateTop, line, line);
        icon("document-open-folder").paint(painter, mark);
        texts.setRight(mark.left() - 4);
    }
    const QString state = index.data(DeviceListModel::stateRole).toString();
    painter->setFont(small);
    painter->setPen(faint);
    painter->drawText(QRect(texts.left(), stateTop, texts.width(), line),
                      Qt::AlignLeft | Qt::AlignVCenter,
                      smallMetrics.elidedText(state.isEmpty() ? deviceDetail(*device) : state,
                                              Qt::ElideRight, texts.width()));

    if ((option.state & QStyle::State_HasFocus) != 0 &&
        (option.state & QStyle::State_KeyboardFocusChange) != 0) {
        painter->setPen(QPen(text, 1, Qt::DotLine));
        painter->setBrush(Qt::NoBrush);
        painter->drawRoundedRect(card.adjusted(2, 2, -2, -2), 7, 7);
    }
    painter->restore();
}

} // namespace tessary
