#include "views/common/Layouts.h"

#include <QMenu>
#include <QVBoxLayout>
#include <QWidget>

namespace tessary {

QVBoxLayout* makeColumn(QWidget& widget, int spacing) {
    auto* column = new QVBoxLayout(&widget);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(spacing);
    return column;
}

void resizeWithin(QWidget& window, const QSize& wished) {
    constexpr QSize rim(40, 60);
    const QWidget* behind = window.parentWidget();
    window.resize(behind != nullptr ? wished.boundedTo(behind->window()->size() - rim) : wished);
}

void addCommands(QMenu& menu, std::initializer_list<QAction*> commands) {
    for (QAction* command : commands) {
        if (command == nullptr)
            menu.addSeparator();
        else
            menu.addAction(command);
    }
}

QFont demiBold(QFont font) {
    font.setWeight(QFont::DemiBold);
    return font;
}

} // namespace tessary
