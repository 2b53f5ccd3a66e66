#include "views/common/Layouts.h"

#include <QVBoxLayout>

namespace tessary {

QVBoxLayout* makeColumn(QWidget& widget, int spacing) {
    auto* column = new QVBoxLayout(&widget);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(spacing);
    return column;
}

QFont demiBold(QFont font) {
    font.setWeight(QFont::DemiBold);
    return font;
}

} // namespace tessary
