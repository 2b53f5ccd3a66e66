#include "views/import/PhotoDelegate.h"

#include "views/common/Icons.h"
#include "views/common/Layouts.h"
#include "views/import/PhotoListModel.h"
#include "views/listing/ThumbnailStore.h"

#include <QKeyEvent>
#include <QListView>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace tessary {

namespace {

constexpr int margin = 6;     ///< pixels
constexpr int dayHeight = 40; ///< pixels
constexpr int markSide = 22;  ///< pixels

Qt::CheckState checkStateOf(const QModelIndex& index) {
    return static_cast<Qt::CheckState>(index.data(Qt::CheckStateRole).toInt());
}

/// A ring on every ground, filled with a check mark once it is chosen.
void paintMark(QPainter& painter, const QRect& place, Qt::CheckState state,
               const QPalette& palette) {
    const bool isOn = state != Qt::Unchecked;
    painter.setPen(QPen(isOn ? QColor(Qt::white) : palette.color(QPalette::Mid), 2));
    painter.setBrush(isOn ? palette.color(QPalette::Active, QPalette::Highlight)
                          : palette.color(QPalette::Base));
    painter.drawEllipse(place.adjusted(1, 1, -1, -1));
    if (!isOn)
        return;
    painter.setPen(QPen(Qt::white, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPointF c = QRectF(place).center();
    if (state == Qt::PartiallyChecked)
        painter.drawLine(c - QPointF(4, 0), c + QPointF(4, 0));
    else
        painter.drawPolyline(
            QPolygonF{c + QPointF(-4.5, 0), c + QPointF(-1, 3.5), c + QPointF(4.5, -3.5)});
}

/// A word in a corner of a picture, readable on all of them.
void paintBadge(QPainter& painter, const QRect& picture, const QString& text) {
    const QFontMetrics metrics(painter.font());
    QRect ground(0, 0, metrics.horizontalAdvance(text) + 12, metrics.height() + 4);
    ground.moveBottomLeft(picture.bottomLeft() + QPoint(4, -4));
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 150));
    painter.drawRoundedRect(ground, 4, 4);
    painter.setPen(Qt::white);
    painter.drawText(ground, Qt::AlignCenter, text);
}

} // namespace

PhotoDelegate::PhotoDelegate(QListView& view, ThumbnailStore& thumbnails)
    : QStyledItemDelegate(&view), view_(view), thumbnails_(thumbnails) {}

QSize PhotoDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex& index) const {
    if (index.data(PhotoListModel::isDayRole).toBool())
        return {std::max(view_.viewport()->width() - 2 * view_.spacing() - 1, pictureSide),
                dayHeight};
    return {pictureSide + 2 * margin, pictureSide + 2 * margin};
}

void PhotoDelegate::paint(QPainter* painter, const QStyleOptionViewItem& plain,
                          const QModelIndex& index) const {
    QStyleOptionViewItem option = plain;
    initStyleOption(&option, index);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (index.data(PhotoListModel::isDayRole).toBool())
        paintDay(*painter, option, index);
    else
        paintPhoto(*painter, option, index);
    if ((option.state & QStyle::State_HasFocus) != 0) {
        painter->setPen(QPen(option.palette.color(QPalette::Highlight), 1, Qt::DotLine));
        painter->setBrush(Qt::NoBrush);
        painter->drawRoundedRect(option.rect.adjusted(1, 1, -1, -1), margin, margin);
    }
    painter->restore();
}

void PhotoDelegate::paintDay(QPainter& painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
    const QRect row = option.rect.adjusted(margin, 0, -margin, 0);
    QRect mark(0, 0, markSide, markSide);
    mark.moveCenter({row.left() + markSide / 2, row.center().y()});
    paintMark(painter, mark, checkStateOf(index), option.palette);
    painter.setFont(demiBold(option.font));
    painter.setPen(option.palette.color(QPalette::WindowText));
    painter.drawText(row.adjusted(markSide + margin, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft,
                     index.data(Qt::DisplayRole).toString());
}

void PhotoDelegate::paintPhoto(QPainter& painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const {
    const QRect cell = option.rect.adjusted(margin, margin, -margin, -margin);
    const QString id = index.data(PhotoListModel::idRole).toString();
    const bool isVideo = index.data(PhotoListModel::isVideoRole).toBool();
    QPixmap picture = thumbnails_.find(id, view_.devicePixelRatioF());
    QRect place = cell;
    if (picture.isNull()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(option.palette.color(QPalette::AlternateBase));
        painter.drawRoundedRect(cell, margin, margin);
        constexpr int iconSide = 48;
        QRect iconPlace(0, 0, iconSide, iconSide);
        iconPlace.moveCenter(cell.center());
        fileIcon(isVideo ? QStringLiteral("video-x-generic") : QStringLiteral("image-x-generic"))
            .paint(&painter, iconPlace);
    } else {
        place.setSize(picture.deviceIndependentSize().toSize().boundedTo(cell.size()));
        place.moveCenter(cell.center());
        painter.drawPixmap(place, picture);
    }
    if (index.data(PhotoListModel::wasFetchedRole).toBool()) {
        // Paler: it is here already.
        QColor veil = option.palette.color(QPalette::Base);
        veil.setAlphaF(0.55F);
        painter.fillRect(place, veil);
    }
    painter.setFont(scaled(option.font, 0.8));
    const int files = index.data(PhotoListModel::filesRole).toInt();
    if (isVideo || picture.isNull())
        paintBadge(painter, cell,
                   option.fontMetrics.elidedText(index.data(Qt::DisplayRole).toString(),
                                                 Qt::ElideMiddle, cell.width() - 24));
    else if (files > 1)
        paintBadge(painter, place, QStringLiteral("+%1").arg(files - 1));
    QRect mark(0, 0, markSide, markSide);
    mark.moveTopRight(place.topRight() + QPoint(-4, 4));
    paintMark(painter, mark, checkStateOf(index), option.palette);
}

bool PhotoDelegate::editorEvent(QEvent* event, QAbstractItemModel* model,
                                const QStyleOptionViewItem&, const QModelIndex& index) {
    const bool isClick = event->type() == QEvent::MouseButtonRelease &&
                         static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton;
    const bool isKey =
        event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Space;
    if (!isClick && !isKey)
        return false;
    return model->setData(index, checkStateOf(index) == Qt::Checked ? Qt::Unchecked : Qt::Checked,
                          Qt::CheckStateRole);
}

} // namespace tessary
