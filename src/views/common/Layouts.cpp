#include "views/common/Layouts.h"

#include <QLabel>
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

QLabel* makeNote() {
    auto* note = new QLabel;
    note->setWordWrap(true);
    note->setForegroundRole(QPalette::PlaceholderText);
    return note;
}

QFont demiBold(QFont font) {
    font.setWeight(QFont::DemiBold);
    return font;
}

QVBoxLayout* makeMiddle(QWidget& page, int above, int below) {
    constexpr int widest = 460;
    page.setAutoFillBackground(true);
    page.setBackgroundRole(QPalette::Base);
    auto* column = new QWidget;
    column->setMaximumWidth(widest);
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    row->addWidget(column, 1000); // all of it, up to its own width
    row->addStretch(1);
    auto* outer = new QVBoxLayout(&page);
    outer->addStretch(above);
    outer->addLayout(row);
    outer->addStretch(below);
    return new QVBoxLayout(column);
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
