#include "app/views/PlaceList.h"

#include "app/LanguageManager.h"
#include "app/Translations.h"
#include "app/views/PlaceListModel.h"

#include <QLabel>
#include <QVBoxLayout>

namespace tessary {

namespace {

constexpr int rowHeight = 28;

/// A row's ground with round corners, as the devices have it.
QString viewStyle() {
    return QStringLiteral("QListView { background: transparent; outline: 0; }"
                          "QListView::item { height: %1px; padding-left: 10px;"
                          " border-radius: 6px; margin: 0 6px; }"
                          "QListView::item:hover { background: palette(midlight); }"
                          "QListView::item:selected { background: palette(highlight);"
                          " color: palette(highlighted-text); }")
        .arg(rowHeight);
}

} // namespace

QWidget* makeSectionHeading(const char* key) {
    auto* heading = new QLabel;
    keepTranslated(heading, [heading, key] { heading->setText(tessary::tr(key)); });
    QFont font = heading->font();
    font.setPointSizeF(font.pointSizeF() * 0.88);
    font.setWeight(QFont::DemiBold);
    heading->setFont(font);
    heading->setForegroundRole(QPalette::PlaceholderText);
    heading->setContentsMargins(16, 12, 10, 4);
    return heading;
}

PlaceList::PlaceList(const char* headingKey, PlaceListModel& model, QWidget* parent)
    : QWidget(parent), model_(model), view_(new QListView), hint_(new QLabel) {
    keepTranslated(view_,
                   [this, headingKey] { view_->setAccessibleName(tessary::tr(headingKey)); });
    view_->setModel(&model);
    view_->setFrameShape(QFrame::NoFrame);
    view_->setIconSize({18, 18});
    view_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view_->setTextElideMode(Qt::ElideMiddle);
    view_->setMouseTracking(true);
    view_->setUniformItemSizes(true);
    view_->setStyleSheet(viewStyle());
    view_->viewport()->setAutoFillBackground(false);
    hint_->setWordWrap(true);
    hint_->setForegroundRole(QPalette::PlaceholderText);
    hint_->setContentsMargins(16, 2, 12, 4);
    QFont small = hint_->font();
    small.setPointSizeF(small.pointSizeF() * 0.88);
    hint_->setFont(small);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(makeSectionHeading(headingKey));
    column->addWidget(hint_);
    column->addWidget(view_);
    for (auto signal : {&QAbstractItemModel::modelReset})
        connect(&model, signal, this, [this] { fit(); });
    fit();
}

void PlaceList::setHint(const char* key) {
    hasHint_ = true;
    keepTranslated(hint_, [this, key] { hint_->setText(tessary::tr(key)); });
    fit();
}

void PlaceList::mark(const QModelIndex& index) {
    if (index.isValid())
        view_->setCurrentIndex(index);
    else
        view_->selectionModel()->clear();
}

void PlaceList::fit() {
    const int rows = model_.rowCount();
    view_->setFixedHeight(rows * rowHeight);
    view_->setVisible(rows > 0);
    hint_->setVisible(rows == 0 && hasHint_);
    setVisible(rows > 0 || hasHint_);
}

} // namespace tessary
