#include "views/common/Layouts.h"

#include <QMenu>
#include <QProgressBar>
#include <QToolButton>
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

void makeBusy(QProgressBar& bar) {
    bar.setRange(0, 0);
    bar.setTextVisible(false);
    bar.setFixedHeight(6);
}

void setName(QToolButton& button, const QString& name) {
    button.setToolTip(name);
    button.setAccessibleName(name);
}

QFont scaled(QFont font, double factor) {
    if (font.pixelSize() > 0) // it is given in pixels, and has no points
        font.setPixelSize(qRound(font.pixelSize() * factor));
    else
        font.setPointSizeF(font.pointSizeF() * factor);
    return font;
}

} // namespace tessary
