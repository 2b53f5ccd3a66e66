#include "views/sidebar/PlaceList.h"

#include "app/LanguageManager.h"
#include "views/common/EntryDrop.h"
#include "views/common/Layouts.h"
#include "views/common/RowGround.h"
#include "views/sidebar/PlaceListModel.h"

#include <QDropEvent>
#include <QLabel>
#include <QPainter>
#include <QRubberBand>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

namespace tessary {

namespace {

constexpr int rowHeight = 28;

/// A row with round corners, as the devices have them.
class PlaceDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override {
        return {QStyledItemDelegate::sizeHint(option, index).width(), rowHeight};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& plain,
               const QModelIndex& index) const override {
        constexpr int margin = 6;
        constexpr int padding = 14;
        constexpr int gap = 6;
        QStyleOptionViewItem option = plain;
        initStyleOption(&option, index);
        const bool isSelected = (option.state & QStyle::State_Selected) != 0;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        paintRowGround(*painter, option, option.rect.adjusted(margin, 0, -margin, 0), margin);
        QRect place = option.rect.adjusted(margin + padding, 0, -2 * margin, 0);
        const int side = option.decorationSize.height();
        option.icon.paint(painter, QRect(place.left(), place.top(), side, place.height()));
        place.setLeft(place.left() + side + gap);
        painter->setPen(
            option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text));
        painter->drawText(
            place, Qt::AlignVCenter | Qt::AlignLeft,
            option.fontMetrics.elidedText(option.text, Qt::ElideMiddle, place.width()));
        painter->restore();
    }
};

} // namespace

QWidget* makeSectionHeading(Words text) {
    auto* heading = new QLabel;
    keepTranslated(heading, [heading, text] { heading->setText(text()); });
    heading->setFont(demiBold(scaled(heading->font(), 0.88)));
    heading->setForegroundRole(QPalette::PlaceholderText);
    heading->setContentsMargins(16, 12, 10, 4);
    return heading;
}

PlaceList::PlaceList(Words heading, PlaceListModel& model, Words hint)
    : model_(model),
      view_(new QListView),
      hint_(makeNote()),
      hasHint_(hint != nullptr),
      dropMark_(new QRubberBand(QRubberBand::Rectangle, view_->viewport())) {
    keepTranslated(view_, [this, heading] { view_->setAccessibleName(heading()); });
    view_->setModel(&model);
    view_->setFrameShape(QFrame::NoFrame);
    view_->setIconSize({18, 18});
    view_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view_->setTextElideMode(Qt::ElideMiddle);
    view_->setMouseTracking(true);
    view_->setUniformItemSizes(true);
    view_->setItemDelegate(new PlaceDelegate(view_));
    view_->viewport()->setAutoFillBackground(false);
    hint_->setContentsMargins(16, 2, 12, 4);
    hint_->setFont(scaled(hint_->font(), 0.88));
    auto* column = makeColumn(*this);
    column->addWidget(makeSectionHeading(heading));
    column->addWidget(hint_);
    column->addWidget(view_);
    if (hasHint_)
        keepTranslated(hint_, [this, hint] { hint_->setText(hint()); });
    for (auto signal : {&QListView::clicked, &QListView::activated})
        connect(view_, signal, this, &PlaceList::chosen);
    view_->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(view_, &QWidget::customContextMenuRequested, this, [this](const QPoint& where) {
        Q_EMIT menuRequested(view_->indexAt(where), view_->viewport()->mapToGlobal(where));
    });
    connect(&model, &QAbstractItemModel::modelReset, this, [this] { fit(); });
    fit();
}

void PlaceList::setDrops(const EntryDrop& drops) {
    drops_ = &drops;
    setAcceptDrops(true);
    view_->viewport()->setAcceptDrops(true);
    view_->viewport()->installEventFilter(this);
}

/// The place that a drop at a position would go into. Where rows can be moved, their edges stand
/// for the room between them.
QModelIndex PlaceList::targetAt(const QPoint& position) const {
    const QModelIndex index = view_->indexAt(position);
    if (!index.isValid() || !model_.isOnShownConnection(index))
        return {};
    const int edge = view_->dragDropMode() == QAbstractItemView::NoDragDrop ? 0 : rowHeight / 4;
    return view_->visualRect(index).adjusted(0, edge, 0, -edge).contains(position) ? index
                                                                                   : QModelIndex();
}

/// True when it was all about a drop into a place.
bool PlaceList::handleDrag(QEvent& event) {
    if (event.type() == QEvent::DragLeave) {
        dropMark_->hide();
        return false;
    }
    auto& drag = static_cast<QDropEvent&>(event);
    if (event.type() == QEvent::DragEnter) {
        if (drops_->isUsable(drag))
            drag.acceptProposedAction();
        return drag.isAccepted();
    }
    const QModelIndex index = targetAt(drag.position().toPoint());
    const Place* place = model_.placeAt(index);
    const bool isTarget = place != nullptr && drops_->consider(drag, {place->path, {}});
    if (isTarget)
        dropMark_->setGeometry(view_->visualRect(index));
    dropMark_->setVisible(isTarget && event.type() == QEvent::DragMove);
    if (isTarget && event.type() == QEvent::Drop)
        drops_->drop(drag, {place->path, {}});
    const bool takesRows = view_->dragDropMode() != QAbstractItemView::NoDragDrop;
    if (!isTarget && !takesRows)
        drag.ignore();
    return isTarget || !takesRows;
}

bool PlaceList::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::DragLeave:
    case QEvent::Drop:
        return handleDrag(*event);
    default:
        return QWidget::eventFilter(watched, event);
    }
}

void PlaceList::dragEnterEvent(QDragEnterEvent* event) {
    dragMoveEvent(event);
}

void PlaceList::dragMoveEvent(QDragMoveEvent* event) {
    if (model_.canDropMimeData(event->mimeData(), event->dropAction(), 0, 0, {}))
        event->acceptProposedAction();
    else
        event->ignore();
}

/// Beside the rows is before them all. Without any nothing else is there to drop on.
void PlaceList::dropEvent(QDropEvent* event) {
    if (model_.dropMimeData(event->mimeData(), event->dropAction(), 0, 0, {}))
        event->acceptProposedAction();
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
