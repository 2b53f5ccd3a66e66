#include "views/tabs/WelcomeView.h"

#include "app/LanguageManager.h"
#include "views/common/Icons.h"
#include "views/common/Layouts.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tessary {

namespace {

/// A label that follows the language.
QLabel* translated(const char* text) {
    auto* label = new QLabel;
    label->setWordWrap(true);
    keepTranslated(label, [label, text] { label->setText(WelcomeView::tr(text)); });
    return label;
}

/// "1  Plug the phone in", with what to know about it below.
QWidget* step(int number, const char* title, const char* detail) {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(14);
    auto* badge = new QLabel(QString::number(number));
    badge->setFont(demiBold(scaled(badge->font(), 1.1)));
    badge->setAlignment(Qt::AlignCenter);
    badge->setFixedSize(30, 30);
    badge->setStyleSheet(QStringLiteral(
        "background: palette(highlight); color: palette(highlighted-text); border-radius: 15px;"));
    auto* texts = new QVBoxLayout;
    texts->setSpacing(1);
    auto* heading = translated(title);
    heading->setFont(demiBold(scaled(heading->font(), 1.05)));
    texts->addWidget(heading);
    texts->addWidget(translated(detail));
    layout->addWidget(badge, 0, Qt::AlignTop);
    layout->addLayout(texts, 1);
    return row;
}

} // namespace

WelcomeView::WelcomeView(std::function<void()> startDemo, QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("welcomeView"));
    auto* picture = new QLabel;
    picture->setPixmap(icon("tessaryPicture").pixmap(96, 96));
    picture->setAlignment(Qt::AlignCenter);
    auto* title = translated(QT_TR_NOOP("Connect a phone"));
    title->setFont(demiBold(scaled(title->font(), 1.8)));
    title->setAlignment(Qt::AlignCenter);

    auto* demo = new QPushButton;
    demo->setObjectName(QStringLiteral("startDemo"));
    keepTranslated(demo, [demo] {
        demo->setText(tr("Try It with a Virtual Phone"));
        demo->setToolTip(
            tr("Starts Tessary again with two virtual phones, which hold sample files"));
    });
    connect(demo, &QPushButton::clicked, this, [run = std::move(startDemo)] { run(); });

    auto* content = makeMiddle(*this, 1, 2);
    content->setSpacing(16);
    content->addWidget(picture);
    content->addWidget(title);
    content->addSpacing(4);
    content->addWidget(step(1, QT_TR_NOOP("Plug it in"),
                            QT_TR_NOOP("Use a cable that carries data: some only charge.")));
    content->addWidget(step(2, QT_TR_NOOP("Unlock it"),
                            QT_TR_NOOP("A locked phone shows nothing of its storage.")));
    content->addWidget(step(
        3, QT_TR_NOOP("Allow it on the phone"),
        QT_TR_NOOP("Android: tap the notification “Charging this device via USB” and choose “File "
                   "transfer”. iPhone: tap “Trust”.")));
    content->addSpacing(8);
    content->addWidget(demo, 0, Qt::AlignCenter);
}

} // namespace tessary
