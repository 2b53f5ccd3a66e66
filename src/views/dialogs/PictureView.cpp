#include "views/dialogs/PictureView.h"

#include <QPainter>

namespace tessary {

PictureView::PictureView(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("previewPicture"));
    setMinimumSize(120, 90);
}

void PictureView::setImage(const QImage& image) {
    image_ = image;
    shown_ = {};
    update();
}

void PictureView::paintEvent(QPaintEvent*) {
    if (image_.isNull())
        return;
    const qreal scale = devicePixelRatioF();
    if (shown_.isNull()) {
        const QSize room = (QSizeF(size()) * scale).toSize();
        const bool fits = image_.width() <= room.width() && image_.height() <= room.height();
        shown_ = QPixmap::fromImage(
            fits ? image_ : image_.scaled(room, Qt::KeepAspectRatio, Qt::SmoothTransformation));
        shown_.setDevicePixelRatio(scale);
    }
    QRectF place(QPointF(), shown_.deviceIndependentSize());
    place.moveCenter(QRectF(rect()).center());
    QPainter painter(this);
    painter.drawPixmap(place.topLeft().toPoint(), shown_);
}

void PictureView::resizeEvent(QResizeEvent*) {
    shown_ = {};
}

} // namespace tessary
