#include "app/views/WelcomeView.h"

#include "app/Translations.h"
#include "app/views/Icons.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tessary {

namespace {

QLabel* label(const QString& text, double scale, QFont::Weight weight) {
    auto* result = new QLabel(text);
    QFont font = result->font();
    font.setPointSizeF(font.pointSizeF() * scale);
    font.setWeight(weight);
    result->setFont(font);
    result->setWordWrap(true);
    return result;
}

/// "1  Plug the phone in", with what to know about it below.
QWidget* step(int number, const QString& title, const QString& detail) {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(14);
    auto* badge = label(QString::number(number), 1.1, QFont::Bold);
    badge->setAlignment(Qt::AlignCenter);
    badge->setFixedSize(30, 30);
    badge->setStyleSheet(QStringLiteral(
        "background: palette(highlight); color: palette(highlighted-text); border-radius: 15px;"));
    auto* texts = new QVBoxLayout;
    texts->setSpacing(1);
    texts->addWidget(label(title, 1.05, QFont::DemiBold));
    texts->addWidget(label(detail, 1.0, QFont::Normal));
    layout->addWidget(badge, 0, Qt::AlignTop);
    layout->addLayout(texts, 1);
    return row;
}

} // namespace

WelcomeView::WelcomeView(std::function<void()> startDemo, QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("welcomeView"));
    auto* picture = new QLabel;
    picture->setPixmap(icon("smartphone").pixmap(96, 96));
    picture->setAlignment(Qt::AlignCenter);
    auto* title = label(tessary::tr("Connect a phone"), 1.8, QFont::DemiBold);
    title->setAlignment(Qt::AlignCenter);

    auto* demo = new QPushButton(tessary::tr("Try It with a Virtual Phone"));
    demo->setObjectName(QStringLiteral("startDemo"));
    demo->setToolTip(
        tessary::tr("Starts Tessary again with two virtual phones, which hold sample files"));
    connect(demo, &QPushButton::clicked, this, [run = std::move(startDemo)] { run(); });

    auto* column = new QWidget;
    column->setMaximumWidth(460);
    auto* content = new QVBoxLayout(column);
    content->setSpacing(16);
    content->addWidget(picture);
    content->addWidget(title);
    content->addSpacing(4);
    content->addWidget(step(1, tessary::tr("Plug it in"),
                            tessary::tr("Use a cable that carries data: some only charge.")));
    content->addWidget(step(2, tessary::tr("Unlock it"),
                            tessary::tr("A locked phone shows nothing of its storage.")));
    content->addWidget(
        step(3, tessary::tr("Choose “File transfer” on it"),
             tessary::tr("Android asks in a notification that says “Charging this device "
                         "via USB”.")));
    content->addSpacing(8);
    content->addWidget(demo, 0, Qt::AlignCenter);

    auto* outer = new QVBoxLayout(this);
    outer->addStretch(1);
    outer->addWidget(column, 0, Qt::AlignHCenter);
    outer->addStretch(2);
    column->setMinimumWidth(420);
}

} // namespace tessary
