#include "views/transfers/TransferDelegate.h"

#include "views/common/Icons.h"
#include "views/common/Layouts.h"
#include "views/common/RowGround.h"
#include "views/transfers/TransferListModel.h"

#include <QMouseEvent>
#include <QPainter>

#include <vector>

namespace tessary {

namespace {

constexpr int margin = 8;
constexpr int markSize = 26;
constexpr int barHeight = 5;
constexpr int buttonSize = 22;

QRect buttonRect(const QRect& row) {
    return {row.right() - margin - buttonSize, row.center().y() - buttonSize / 2, buttonSize,
            buttonSize};
}

QColor colourOf(const CopyJob& job, const QPalette& palette) {
    using Status = CopyJob::Status;
    switch (job.status) {
    case Status::failed:
    case Status::incomplete:
        return {206, 58, 58};
    case Status::done:
        return {56, 158, 84};
    case Status::cancelled:
    case Status::paused:
        return palette.color(QPalette::Mid);
    default:
        return palette.color(QPalette::Highlight);
    }
}

/// The strokes that say how a job stands, in a square of 24 units: a tick, a cross, two bars, or an
/// arrow in the direction of the copy.
std::vector<QLineF> strokesOf(const CopyJob& job) {
    using Status = CopyJob::Status;
    switch (job.status) {
    case Status::done:
        return {{7, 12.5, 10.5, 16}, {10.5, 16, 17, 8.5}};
    case Status::failed:
    case Status::cancelled:
        return {{8.5, 8.5, 15.5, 15.5}, {15.5, 8.5, 8.5, 15.5}};
    case Status::incomplete:
        return {{12, 7, 12, 13}, {12, 16.6, 12, 16.9}};
    case Status::paused:
        return {{9.5, 8, 9.5, 16}, {14.5, 8, 14.5, 16}};
    case Status::queued:
    case Status::running:
        break;
    }
    if (job.direction == CopyJob::Direction::toPhone)
        return {{12, 17.5, 12, 6.5}, {7, 11.5, 12, 6.5}, {12, 6.5, 17, 11.5}};
    return {{12, 6.5, 12, 17.5}, {7, 12.5, 12, 17.5}, {12, 17.5, 17, 12.5}};
}

/// A disc with the strokes in it: filled once the job has ended, for what is under way a ring.
void paintMark(QPainter& painter, const QRectF& place, const CopyJob& job,
               const QPalette& palette) {
    constexpr double units = 24;
    constexpr double width = 2;
    const QColor colour = colourOf(job, palette);
    painter.save();
    painter.translate(place.topLeft());
    painter.scale(place.width() / units, place.height() / units);
    QColor ground = colour;
    if (!job.isFinished())
        ground.setAlphaF(0.16F);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawEllipse(QRectF(1, 1, units - 2, units - 2));
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(job.isFinished() ? QColor(Qt::white) : colour, width, Qt::SolidLine,
                        Qt::RoundCap, Qt::RoundJoin));
    for (const QLineF& stroke : strokesOf(job))
        painter.drawLine(stroke);
    painter.restore();
}

/// Null for what is no row of a TransferListModel.
const CopyJob* jobOf(const QModelIndex& index) {
    const auto* model = qobject_cast<const TransferListModel*>(index.model());
    return model != nullptr ? model->jobAt(index) : nullptr;
}

} // namespace

TransferDelegate::TransferDelegate(std::function<void(const CopyJob&)> act, QObject* parent)
    : QStyledItemDelegate(parent), act_(std::move(act)) {}

QSize TransferDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
    return {200, 2 * option.fontMetrics.height() + barHeight + 2 * margin + 6};
}

void TransferDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
    const CopyJob* job = jobOf(index);
    if (job == nullptr)
        return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const QPalette& palette = option.palette;
    if ((option.state & QStyle::State_Selected) != 0) {
        QColor ground = palette.color(QPalette::Highlight);
        ground.setAlphaF(0.15F);
        painter->fillRect(option.rect, ground);
    }
    const QRect inner = option.rect.adjusted(margin + 4, margin, -margin, -margin);
    const int line = option.fontMetrics.height();
    paintMark(*painter,
              QRectF(inner.left(), option.rect.center().y() - markSize / 2.0, markSize, markSize),
              *job, palette);

    const int left = inner.left() + markSize + 12;
    const int right = buttonRect(option.rect).left() - 12;
    const QColor text = palette.color(QPalette::WindowText);
    QColor faint = text;
    faint.setAlphaF(0.72F);
    const QFont small = scaled(option.font, 0.9);
    const QFontMetrics smallMetrics(small);
    // Where it goes stands to the right, and gives way to the name.
    const QString route =
        smallMetrics.elidedText(transferRoute(*job), Qt::ElideMiddle, (right - left) * 2 / 5);
    const int routeWidth = smallMetrics.horizontalAdvance(route);
    const bool showsBar = !job->isFinished();
    const int top = showsBar ? inner.top() : inner.center().y() - line - 1;
    painter->setPen(text);
    painter->drawText(QRect(left, top, right - left, line), Qt::AlignVCenter,
                      option.fontMetrics.elidedText(index.data().toString(), Qt::ElideMiddle,
                                                    right - left - routeWidth - 16));
    painter->setPen(faint);
    painter->setFont(small);
    painter->drawText(QRect(right - routeWidth - 1, top, routeWidth + 1, line),
                      Qt::AlignVCenter | Qt::AlignRight, route);
    if (showsBar)
        paintBar(*painter, QRectF(left, top + line + 3, right - left, barHeight),
                 job->fractionDone(), text, colourOf(*job, palette));
    const bool wentWrong =
        job->status == CopyJob::Status::failed || job->status == CopyJob::Status::incomplete;
    painter->setPen(wentWrong ? colourOf(*job, palette) : faint);
    painter->drawText(QRect(left, top + line + (showsBar ? barHeight + 6 : 2), right - left, line),
                      Qt::AlignVCenter,
                      smallMetrics.elidedText(transferDetail(*job), Qt::ElideRight, right - left));
    if (!job->isFinished())
        icon("dialog-close").paint(painter, buttonRect(option.rect).adjusted(3, 3, -3, -3));
    else if (job->canGoOn())
        icon("view-refresh").paint(painter, buttonRect(option.rect).adjusted(2, 2, -2, -2));
    painter->restore();
}

bool TransferDelegate::editorEvent(QEvent* event, QAbstractItemModel* model,
                                   const QStyleOptionViewItem& option, const QModelIndex& index) {
    if (event->type() == QEvent::MouseButtonRelease) {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->button() == Qt::LeftButton &&
            buttonRect(option.rect).contains(mouse->position().toPoint())) {
            if (const CopyJob* job = jobOf(index))
                act_(*job);
            return true;
        }
    }
    return QStyledItemDelegate::editorEvent(event, model, option, index);
}

} // namespace tessary
