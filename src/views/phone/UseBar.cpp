#include "views/phone/UseBar.h"

#include "base/text/ByteFormat.h"

#include <QPainter>
#include <QPainterPath>
#include <QStringList>

#include <algorithm>
#include <utility>

namespace tessary {

namespace {

constexpr int barHeight = 16;
constexpr int gap = 8;      // between the bar and its legend
constexpr int dot = 9;      // of a colour in the legend
constexpr int between = 18; // two entries of the legend
constexpr int thinnest = 3; // piece of the bar; all in pixels

} // namespace

UseBar::UseBar() {
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

QString UseBar::textOf(const Piece& piece) {
    return QStringLiteral("%1 %2").arg(piece.name, formatBytes(piece.bytes));
}

void UseBar::setPieces(std::vector<Piece> pieces) {
    std::erase_if(pieces, [](const Piece& piece) { return piece.bytes <= 0; });
    if (pieces == pieces_)
        return;
    pieces_ = std::move(pieces);
    QStringList texts;
    for (const Piece& piece : pieces_)
        texts << textOf(piece);
    setAccessibleDescription(texts.join(QStringLiteral(", ")));
    updateGeometry();
    update();
}

/// Where the entries of the legend stand, in lines.
std::vector<QRect> UseBar::legend(int width) const {
    std::vector<QRect> places;
    const QFontMetrics metrics = fontMetrics();
    QPoint next(0, barHeight + gap);
    for (const Piece& piece : pieces_) {
        const int room = dot + 6 + metrics.horizontalAdvance(textOf(piece)) + 1;
        if (next.x() > 0 && next.x() + room > width)
            next = QPoint(0, next.y() + metrics.height() + 4);
        places.emplace_back(next, QSize(std::min(room, width), metrics.height()));
        next.rx() += room + between;
    }
    return places;
}

QSize UseBar::sizeHint() const {
    constexpr int usualWidth = 420;
    return {usualWidth, heightForWidth(usualWidth)};
}

int UseBar::heightForWidth(int width) const {
    const auto places = legend(width);
    return places.empty() ? barHeight : places.back().bottom() + 1;
}

void UseBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor ground = palette().color(QPalette::WindowText);
    ground.setAlphaF(0.14F);
    QPainterPath shape;
    shape.addRoundedRect(QRectF(0, 0, width(), barHeight), 5, 5);
    painter.fillPath(shape, ground);
    double inAll = 0;
    for (const Piece& piece : pieces_)
        inAll += static_cast<double>(piece.bytes);
    painter.save();
    painter.setClipPath(shape);
    double left = 0;
    for (const Piece& piece : pieces_) {
        const double share = width() * static_cast<double>(piece.bytes) / inAll;
        if (!piece.colour.isValid())
            continue;
        const double wide = std::max<double>(thinnest, share);
        painter.fillRect(QRectF(left, 0, wide, barHeight), piece.colour);
        left += wide;
    }
    painter.restore();

    const auto places = legend(width());
    for (std::size_t i = 0; i < places.size(); ++i) {
        const QRect& place = places[i];
        const QColor colour = pieces_[i].colour.isValid() ? pieces_[i].colour : ground;
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        painter.drawEllipse(
            QRect(place.left(), place.top() + (place.height() - dot) / 2, dot, dot));
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(
            place.adjusted(dot + 6, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft,
            fontMetrics().elidedText(textOf(pieces_[i]), Qt::ElideRight, place.width() - dot - 6));
    }
}

} // namespace tessary
