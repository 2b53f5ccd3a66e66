#include "views/listing/RubberBand.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOptionRubberBand>

#include <algorithm>
#include <chrono>
#include <utility>

namespace tessary {

RubberBand::RubberBand(QAbstractItemView& view, Touched touched)
    : view_(view), touched_(std::move(touched)) {
    using namespace std::chrono_literals;
    scrolling_.setInterval(20ms);
    QObject::connect(&scrolling_, &QTimer::timeout, &view, [this] { scroll(); });
}

QPoint RubberBand::scrolled() const {
    return {view_.horizontalScrollBar()->value(), view_.verticalScrollBar()->value()};
}

QRect RubberBand::frame() const {
    return QRect(from_, pointer_ + scrolled()).normalized();
}

void RubberBand::press(const QMouseEvent& event) {
    isPressed_ = true;
    isDrawn_ = false;
    pointer_ = event.position().toPoint();
    from_ = pointer_ + scrolled();
    before_ = event.modifiers() & (Qt::ControlModifier | Qt::ShiftModifier)
                  ? view_.selectionModel()->selection()
                  : QItemSelection();
    last_.clear();
}

bool RubberBand::move(const QMouseEvent& event) {
    if (!isPressed_ || !event.buttons().testFlag(Qt::LeftButton))
        return false;
    pointer_ = event.position().toPoint();
    if (!isDrawn_ &&
        (pointer_ + scrolled() - from_).manhattanLength() < QApplication::startDragDistance())
        return true;
    isDrawn_ = true;
    scrolling_.start();
    follow();
    return true;
}

bool RubberBand::release() {
    scrolling_.stop();
    isPressed_ = false;
    if (!std::exchange(isDrawn_, false))
        return false;
    view_.viewport()->update();
    // The keyboard goes on from where the pointer was last.
    if (!last_.isEmpty()) {
        const bool isUpward = (pointer_ + scrolled()).y() < from_.y();
        const QItemSelectionRange& range = isUpward ? last_.first() : last_.last();
        view_.selectionModel()->setCurrentIndex(
            view_.model()->index(isUpward ? range.top() : range.bottom(), range.left()),
            QItemSelectionModel::NoUpdate);
    }
    return true;
}

void RubberBand::follow() {
    view_.viewport()->update();
    QItemSelection touched = touched_(frame());
    if (touched == last_)
        return;
    last_ = touched;
    touched.merge(before_, QItemSelectionModel::Select);
    view_.selectionModel()->select(touched,
                                   QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

/// The further out the pointer is, the faster.
void RubberBand::scroll() {
    constexpr int edge = 16; // pixels
    const int bottom = view_.viewport()->height() - edge;
    const int beyond = std::min(pointer_.y() - edge, 0) + std::max(pointer_.y() - bottom, 0);
    QScrollBar& bar = *view_.verticalScrollBar();
    const int before = bar.value();
    bar.setValue(before + beyond);
    if (bar.value() != before)
        follow();
}

void RubberBand::paint(QPainter& painter) const {
    if (!isDrawn_)
        return;
    QStyleOptionRubberBand option;
    option.initFrom(view_.viewport());
    option.shape = QRubberBand::Rectangle;
    option.opaque = false;
    option.rect = frame().translated(-scrolled());
    painter.save();
    view_.style()->drawControl(QStyle::CE_RubberBand, &option, &painter, view_.viewport());
    painter.restore();
}

} // namespace tessary
