#pragma once

class QPainter;
class QRect;
class QStyleOptionViewItem;

namespace tessary {

/// How a selected row stands out: filled, or tinted so that its text keeps its colour.
enum class RowSelection { solid, tinted };

/// Fills a row of a list that is selected, or has the pointer over it, with round corners; any
/// other row stays as it is. Leaves the painter's pen and brush changed.
void paintRowGround(QPainter& painter, const QStyleOptionViewItem& option, const QRect& place,
                    int radius = 8, RowSelection selection = RowSelection::solid);

} // namespace tessary
