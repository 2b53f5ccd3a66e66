#pragma once

class QColor;
class QPainter;
class QRect;
class QRectF;
class QStyleOptionViewItem;

namespace tessary {

/// How a selected row stands out: filled, or tinted so that its text keeps its colour.
enum class RowSelection { solid, tinted };

/// Fills a row of a list that is selected, or has the pointer over it, with round corners; any
/// other row stays as it is. Leaves the painter's pen and brush changed.
void paintRowGround(QPainter& painter, const QStyleOptionViewItem& option, const QRect& place,
                    int radius = 8, RowSelection selection = RowSelection::solid);

/// Paints how much of something is done or used, `share` of a bar with round ends; `text` is the
/// colour of the words beside it. Leaves the painter's pen and brush changed.
void paintBar(QPainter& painter, const QRectF& bar, double share, const QColor& text,
              const QColor& colour);

} // namespace tessary
