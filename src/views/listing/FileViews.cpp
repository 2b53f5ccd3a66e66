#include "views/listing/FileViews.h"

#include "base/text/Printable.h"
#include "views/common/Icons.h"
#include "views/listing/DragOut.h"
#include "views/listing/FileItemDelegate.h"
#include "views/listing/ThumbnailStore.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QDrag>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>

#include <algorithm>

namespace tessary {

namespace {

/// The context of this file's texts.
class Texts {
    Q_DECLARE_TR_FUNCTIONS(tessary::FileViews)
};

QSet<QString> selectedIds(const QItemSelectionModel& selection) {
    QSet<QString> ids;
    for (const QModelIndex& index : selection.selectedRows(FileListModel::nameColumn))
        ids.insert(index.data(FileListModel::idRole).toString());
    return ids;
}

/// Neighbouring rows become one range: a selection of everything is one range, not 100,000.
QItemSelection rangesOf(const FileListModel& model, const QSet<QString>& ids) {
    QList<int> rows;
    for (const QString& id : ids)
        if (const QModelIndex index = model.indexOf(id); index.isValid())
            rows.append(index.row());
    std::sort(rows.begin(), rows.end());
    QItemSelection selection;
    for (qsizetype i = 0; i < rows.size();) {
        qsizetype end = i;
        while (end + 1 < rows.size() && rows[end + 1] == rows[end] + 1)
            ++end;
        selection.append(QItemSelectionRange(
            model.index(rows[i], 0), model.index(rows[end], FileListModel::columnsInAll - 1)));
        i = end + 1;
    }
    return selection;
}

void connectSelection(QAbstractItemView& view, FileListModel& model,
                      FileBrowserViewModel& browser) {
    QItemSelectionModel* selection = view.selectionModel();
    const auto take = [&browser, selection] {
        const QString current = selection->currentIndex()
                                    .siblingAtColumn(FileListModel::nameColumn)
                                    .data(FileListModel::idRole)
                                    .toString();
        browser.selection().set(selectedIds(*selection), current);
    };
    QObject::connect(selection, &QItemSelectionModel::selectionChanged, &browser, take);
    QObject::connect(&browser, &FileBrowserViewModel::sortOrderChanged, &view, [&view, selection] {
        if (selection->isSelected(view.currentIndex()))
            view.scrollTo(view.currentIndex()); // it stays in sight
    });
    QObject::connect(
        &browser.selection(), &EntrySelection::changed, selection,
        [&view, &model, &browser, selection] {
            if (selectedIds(*selection) == browser.selection().ids())
                return;
            const QSignalBlocker quiet(&browser.selection());
            const QSet<QString> ids = browser.selection().ids();
            const auto current = browser.selection().currentId();
            const QModelIndex index = current ? model.indexOf(*current) : QModelIndex();
            // By way of the view: with Shift its next key or click goes on from there, and not from
            // where it was used last.
            view.setCurrentIndex(index.isValid() ? index : view.currentIndex());
            selection->select(rangesOf(model, ids),
                              QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
            if (index.isValid())
                view.scrollTo(index);
        });
}

} // namespace

void setUpListing(QAbstractItemView& view, FileListModel& model, FileBrowserViewModel& browser,
                  FileItemDelegate* delegate) {
    view.setModel(&model);
    view.setItemDelegate(delegate);
    view.setSelectionMode(QAbstractItemView::ExtendedSelection);
    view.setSelectionBehavior(QAbstractItemView::SelectRows);
    view.setEditTriggers(QAbstractItemView::NoEditTriggers); // but by the action's key
    view.setDragDropMode(QAbstractItemView::DragOnly);       // drops are the browser view's
    view.setFrameShape(QFrame::NoFrame);
    view.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    connectSelection(view, model, browser);
    showThumbnails(view, model, browser);
}

void dropSelectionBeside(QAbstractItemView& view, const QMouseEvent& press) {
    const bool keeps = press.modifiers() & (Qt::ControlModifier | Qt::ShiftModifier);
    if (!keeps && !view.indexAt(press.position().toPoint()).isValid())
        view.clearSelection();
}

void dragSelected(QAbstractItemView& view, FileBrowserViewModel& browser) {
    std::vector<FileItem> items = browser.selection().entries();
    if (items.empty() || browser.files() == nullptr)
        return;
    const QFontMetrics metrics = view.fontMetrics();
    const QString label =
        items.size() == 1 ? metrics.elidedText(printable(items.front().name), Qt::ElideMiddle, 220)
                          : Texts::tr("%Ln items", nullptr, static_cast<int>(items.size()));
    const QIcon icon = fileIcon(items.front().iconName());
    constexpr int iconSize = 32;
    constexpr int margin = 8;
    const qreal ratio = view.devicePixelRatioF();
    QPixmap picture(
        (QSizeF(iconSize + metrics.horizontalAdvance(label) + 3 * margin, iconSize + 2 * margin) *
         ratio)
            .toSize());
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    {
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(view.palette().highlight());
        const QRectF ground(QPointF(0, 0), QSizeF(picture.size()) / ratio);
        painter.drawRoundedRect(ground, margin, margin);
        icon.paint(&painter, margin, margin, iconSize, iconSize);
        painter.setPen(view.palette().color(QPalette::HighlightedText));
        painter.drawText(ground.adjusted(iconSize + 2 * margin, 0, -margin, 0),
                         Qt::AlignVCenter | Qt::AlignLeft, label);
    }
    const QPointer drag(new QDrag(&view));
    auto* data = new DragOutData(browser, std::move(items));
    drag->setMimeData(data);
    drag->setPixmap(picture);
    drag->setHotSpot({margin, margin});
    drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::CopyAction);
    // The data lives as long as the drag, which the view's end would take along.
    if (const auto problem = drag ? data->problem() : std::nullopt)
        browser.showProblem(*problem);
}

} // namespace tessary
