#include "views/common/StatusBanner.h"

#include "app/LanguageManager.h"
#include "views/common/ErrorDetails.h"
#include "views/common/Icons.h"
#include "views/common/Layouts.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTextBoundaryFinder>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace tessary {

namespace {

struct KindRow {
    const char* iconName;
    QRgb colour; ///< of the strip's edge and, thinned, of its ground
};

constexpr std::array kinds{
    KindRow{"dialog-information", qRgb(61, 125, 217)},
    KindRow{"dialog-warning", qRgb(214, 140, 20)},
    KindRow{"dialog-error", qRgb(206, 58, 58)},
};

QColor mixed(const QColor& ground, const QColor& colour, double share) {
    const auto part = [share](int a, int b) { return static_cast<int>(a + share * (b - a)); };
    return {part(ground.red(), colour.red()), part(ground.green(), colour.green()),
            part(ground.blue(), colour.blue())};
}

/// What cannot be broken is cut in its middle: a long name without a blank would widen the window.
QString breakable(const QString& text, const QFontMetrics& metrics) {
    constexpr int widest = 240; // pixels
    QString shown;
    QTextBoundaryFinder breaks(QTextBoundaryFinder::Line, text);
    for (qsizetype from = 0, to = breaks.toNextBoundary(); to >= 0;
         from = to, to = breaks.toNextBoundary())
        shown += metrics.elidedText(text.sliced(from, to - from), Qt::ElideMiddle, widest);
    return shown;
}

} // namespace

StatusBanner::StatusBanner(QWidget* parent)
    : QFrame(parent),
      icon_(new QLabel),
      text_(new QLabel),
      advice_(new QLabel),
      details_(new ErrorDetails(Qt::AlignLeft)),
      buttons_(new QHBoxLayout),
      close_(new QToolButton) {
    setObjectName(QStringLiteral("statusBanner"));
    setFrameShape(QFrame::NoFrame);
    setAutoFillBackground(true);

    text_->setFont(demiBold(text_->font()));
    for (QLabel* label : {text_, advice_}) {
        label->setWordWrap(true);
        label->setTextFormat(Qt::PlainText);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    }
    close_->setAutoRaise(true);
    close_->setIcon(icon("dialog-close"));
    keepTranslated(close_, [this] { setName(*close_, tr("Close this message")); });
    connect(close_, &QToolButton::clicked, this, &StatusBanner::close);

    auto* texts = new QVBoxLayout;
    texts->setSpacing(2);
    texts->addWidget(text_);
    texts->addWidget(advice_);
    texts->addWidget(details_);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(14, 10, 8, 10);
    row->setSpacing(12);
    row->addWidget(icon_, 0, Qt::AlignVCenter);
    row->addLayout(texts, 1);
    row->addLayout(buttons_);
    row->addWidget(close_, 0, Qt::AlignTop);
    clear();
}

void StatusBanner::show(const BannerMessage& message) {
    // What is said again keeps its buttons: one of them may be held down just now.
    const bool keepsButtons = std::ranges::equal(message.actions, message_.actions, {},
                                                 &BannerAction::title, &BannerAction::title);
    message_ = message;
    const KindRow& kind = kinds[static_cast<std::size_t>(message.kind)];
    icon_->setPixmap(icon(kind.iconName).pixmap(24, 24));
    text_->setText(breakable(message.words.what, text_->fontMetrics()));
    advice_->setText(breakable(message.words.advice, advice_->fontMetrics()));
    advice_->setVisible(!message.words.advice.isEmpty());
    details_->setText(message.words.details);
    close_->setVisible(message.canBeClosed);
    if (!keepsButtons)
        makeButtons();
    setAccessibleName(message.words.what);
    setAccessibleDescription(message.words.advice);
    applyColours();
    setVisible(true);
}

void StatusBanner::makeButtons() {
    while (QLayoutItem* old = buttons_->takeAt(0)) {
        if (QWidget* button = old->widget()) {
            button->hide();
            button->deleteLater();
        }
        delete old;
    }
    for (std::size_t n = 0; n < message_.actions.size(); ++n) {
        auto* button = new QPushButton(message_.actions[n].title);
        connect(button, &QPushButton::clicked, this, [this, n] {
            const auto run = message_.actions.at(n).run; // it may change the message
            run();
        });
        buttons_->addWidget(button);
    }
}

void StatusBanner::clear() {
    message_ = {};
    makeButtons();
    setVisible(false);
}

void StatusBanner::close() {
    const auto closed = message_.closed;
    clear();
    if (closed)
        closed();
}

void StatusBanner::changeEvent(QEvent* event) {
    QFrame::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        applyColours();
}

void StatusBanner::applyColours() {
    const QColor colour(kinds[static_cast<std::size_t>(message_.kind)].colour);
    const QColor ground = parentWidget() != nullptr
                              ? parentWidget()->palette().color(QPalette::Window)
                              : palette().color(QPalette::Base);
    QPalette colours; // of the rest the window decides
    colours.setColor(QPalette::Window, mixed(ground, colour, 0.14));
    setPalette(colours);
}

} // namespace tessary
