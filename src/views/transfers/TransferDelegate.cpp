#include "views/transfers/TransferDelegate.h"

#include "views/common/Icons.h"
#include "views/transfers/TransferListModel.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace tessary {

namespace {

constexpr int margin = 8;
constexpr int iconSize = 22;
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

} // namespace

TransferDelegate::TransferDelegate(std::function<void(const QModelIndex&)> onCancel,
                                   QObject* parent)
    : QStyledItemDelegate(parent), onCancel_(std::move(onCancel)) {}

QSize TransferDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
    return {200, 2 * option.fontMetrics.height() + barHeight + 2 * margin + 6};
}

void TransferDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
    const auto* model = qobject_cast<const TransferListModel*>(index.model());
    const CopyJob* job = model != nullptr ? model->jobAt(index) : nullptr;
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
    index.data(Qt::DecorationRole)
        .value<QIcon>()
        .paint(painter, QRect(inner.left(), inner.center().y() - iconSize / 2, iconSize, iconSize));

    const int left = inner.left() + iconSize + 12;
    const int right = buttonRect(option.rect).left() - 12;
    const QColor text = palette.color(QPalette::WindowText);
    QColor faint = text;
    faint.setAlphaF(0.72F);
    painter->setPen(text);
    painter->drawText(
        QRect(left, inner.top(), right - left, line), Qt::AlignVCenter,
        option.fontMetrics.elidedText(index.data().toString(), Qt::ElideMiddle, right - left));
    const QRectF bar(left, inner.top() + line + 3, right - left, barHeight);
    QColor trough = text;
    trough.setAlphaF(0.14F);
    painter->setPen(Qt::NoPen);
    painter->setBrush(trough);
    painter->drawRoundedRect(bar, barHeight / 2.0, barHeight / 2.0);
    if (const double share = job->fractionDone(); share > 0) {
        QRectF done = bar;
        done.setWidth(std::max<double>(barHeight, bar.width() * share));
        painter->setBrush(colourOf(*job, palette));
        painter->drawRoundedRect(done, barHeight / 2.0, barHeight / 2.0);
    }
    QFont small = option.font;
    small.setPointSizeF(small.pointSizeF() * 0.9);
    painter->setFont(small);
    const bool wentWrong =
        job->status == CopyJob::Status::failed || job->status == CopyJob::Status::incomplete;
    painter->setPen(wentWrong ? colourOf(*job, palette) : faint);
    painter->drawText(
        QRect(left, inner.top() + line + barHeight + 6, right - left, line), Qt::AlignVCenter,
        QFontMetrics(small).elidedText(transferDetail(*job), Qt::ElideRight, right - left));
    if (!job->isFinished())
        icon("dialog-close").paint(painter, buttonRect(option.rect).adjusted(3, 3, -3, -3));
    painter->restore();
}

bool TransferDelegate::editorEvent(QEvent* event, QAbstractItemModel* model,
                                   const QStyleOptionViewItem& option, const QModelIndex& index) {
    if (event->type() == QEvent::MouseButtonRelease) {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->button() == Qt::LeftButton &&
            buttonRect(option.rect).contains(mouse->position().toPoint())) {
            onCancel_(index);
            return true;
        }
    }
    return QStyledItemDelegate::editorEvent(event, model, option, index);
}

} // namespace tessary
