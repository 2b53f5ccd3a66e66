#include "views/common/PlaceholderView.h"

#include "views/common/ErrorDetails.h"
#include "views/common/Icons.h"
#include "views/common/Layouts.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace tessary {

namespace {

/// Without an `action` there is no button.
void offer(QPushButton& button, const QString& title, const std::function<void()>& action) {
    QObject::disconnect(&button, &QPushButton::clicked, nullptr, nullptr);
    if (action)
        QObject::connect(&button, &QPushButton::clicked, &button, action);
    button.setText(title);
    button.setVisible(static_cast<bool>(action));
}

} // namespace

PlaceholderView::PlaceholderView(QWidget* parent)
    : QWidget(parent),
      picture_(new QLabel),
      title_(new QLabel),
      detail_(new QLabel),
      details_(new ErrorDetails(Qt::AlignHCenter)),
      button_(new QPushButton),
      other_(new QPushButton),
      busy_(new QProgressBar) {
    setObjectName(QStringLiteral("placeholder"));
    title_->setFont(demiBold(scaled(title_->font(), 1.35)));
    for (QLabel* label : {picture_, title_, detail_})
        label->setAlignment(Qt::AlignCenter);
    for (QLabel* label : {title_, detail_}) {
        label->setWordWrap(true);
        label->setTextFormat(Qt::PlainText);
    }
    makeBusy(*busy_);
    busy_->setFixedWidth(160);
    auto* content = makeMiddle(*this, 2, 3);
    content->setSpacing(10);
    content->addWidget(picture_);
    content->addWidget(title_);
    content->addWidget(detail_);
    content->addWidget(busy_, 0, Qt::AlignHCenter);
    content->addSpacing(4);
    content->addWidget(button_, 0, Qt::AlignHCenter);
    content->addWidget(other_, 0, Qt::AlignHCenter);
    content->addWidget(details_);
}

void PlaceholderView::show(const QString& iconName, const QString& title, const QString& detail,
                           const QString& actionTitle, const std::function<void()>& action,
                           bool isBusy) {
    picture_->setPixmap(icon(iconName).pixmap(72, 72, QIcon::Disabled)); // faded
    title_->setText(title);
    detail_->setText(detail);
    detail_->setVisible(!detail.isEmpty());
    offer(*button_, actionTitle, action);
    other_->setVisible(false);
    details_->setText({});
    busy_->setVisible(isBusy);
    busy_->setAccessibleName(title);
    setAccessibleName(title);
    setAccessibleDescription(detail);
}

void PlaceholderView::setDetails(const QString& details) {
    details_->setText(details);
}

void PlaceholderView::addChoice(const QString& title, const std::function<void()>& action) {
    offer(*other_, title, action);
}

} // namespace tessary
