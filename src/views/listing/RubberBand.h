#pragma once

#include <QItemSelection>
#include <QPoint>
#include <QRect>
#include <QTimer>

#include <functional>

class QAbstractItemView;
class QMouseEvent;
class QPainter;

namespace tessary {

/// Selects the entries of a view that a frame touches, which the pointer draws from where there is
/// nothing to drag. With Ctrl or Shift what was selected before stays. The view scrolls when the
/// pointer reaches its edge. The view hands its mouse events over and paints the frame.
class RubberBand {
public:
    /// Rows that an area of the content touches, and the row that the keyboard goes on from.
    using Touched = std::function<QItemSelection(const QRect& content)>;

    /// `view` scrolls by pixels and outlives it.
    RubberBand(QAbstractItemView& view, Touched touched);

    /// A press of the left button where a frame may begin; before the view takes it.
    void press(const QMouseEvent& event);
    /// True once there is a frame: then the move is no matter of the view.
    [[nodiscard]] bool move(const QMouseEvent& event);
    /// True when there was a frame.
    [[nodiscard]] bool release();
    /// Whether there is a frame now.
    [[nodiscard]] bool isDrawn() const {
        return isDrawn_;
    }
    void paint(QPainter& painter) const;

private:
    [[nodiscard]] QPoint scrolled() const;
    [[nodiscard]] QRect frame() const;
    void follow();
    void scroll();

    QAbstractItemView& view_;
    const Touched touched_;
    QTimer scrolling_;
    bool isPressed_ = false;
    bool isDrawn_ = false;
    QPoint from_;           ///< in the content
    QPoint pointer_;        ///< in the viewport
    QItemSelection before_; ///< stays selected
    QItemSelection last_;
};

} // namespace tessary
