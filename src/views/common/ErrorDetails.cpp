#include "views/common/ErrorDetails.h"

#include "app/LanguageManager.h"
#include "views/common/Icons.h"
#include "views/common/Layouts.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>

namespace tessary {

ErrorDetails::ErrorDetails(Qt::Alignment alignment, QWidget* parent)
    : QWidget(parent), fold_(new QToolButton), page_(new QWidget), text_(new QLabel) {
    setObjectName(QStringLiteral("errorDetails"));
    fold_->setObjectName(QStringLiteral("errorDetailsFold"));
    fold_->setCheckable(true);
    fold_->setAutoRaise(true);
    fold_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    text_->setObjectName(QStringLiteral("errorDetailsText"));
    text_->setWordWrap(true);
    text_->setTextFormat(Qt::PlainText);
    text_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text_->setForegroundRole(QPalette::PlaceholderText);
    auto* copy = new QToolButton;
    copy->setObjectName(QStringLiteral("errorDetailsCopy"));
    copy->setAutoRaise(true);
    copy->setIcon(icon("edit-copy"));
    connect(fold_, &QToolButton::toggled, this, &ErrorDetails::unfold);
    connect(copy, &QToolButton::clicked, this,
            [this] { QGuiApplication::clipboard()->setText(text_->text()); });

    text_->setAlignment(alignment);
    auto* line = new QHBoxLayout(page_);
    line->setContentsMargins(0, 0, 0, 0);
    line->addWidget(text_, 1);
    line->addWidget(copy, 0, Qt::AlignTop);
    auto* column = makeColumn(*this);
    column->addWidget(fold_, 0, alignment);
    column->addWidget(page_);
    keepTranslated(this, [this, copy] {
        fold_->setText(tr("Details"));
        setName(*copy, tr("Copy Details"));
    });
    setText({});
}

void ErrorDetails::setText(const QString& details) {
    setVisible(!details.isEmpty());
    if (details == text_->text() && !details.isEmpty())
        return;
    text_->setText(details);
    text_->setAccessibleName(details);
    fold_->setChecked(false);
    unfold(false);
}

void ErrorDetails::unfold(bool isOpen) {
    fold_->setArrowType(isOpen ? Qt::DownArrow : Qt::RightArrow);
    page_->setVisible(isOpen);
}

} // namespace tessary
