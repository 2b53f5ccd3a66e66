#include "views/sync/SyncFileList.h"

#include "base/text/ByteFormat.h"
#include "base/text/Printable.h"
#include "views/common/PlainText.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QStyledItemDelegate>
#include <QTreeWidget>

namespace tessary {

namespace {

/// The context of this file's texts.
class SyncFileList {
    Q_DECLARE_TR_FUNCTIONS(SyncFileList)
};

constexpr int lastColumn = 2;

/// A row as high as its words at the width of their column, which the tree itself does not ask for.
class WrappedWords : public QStyledItemDelegate {
public:
    explicit WrappedWords(QTreeWidget& list) : QStyledItemDelegate(&list), list_(list) {}

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override {
        QStyleOptionViewItem fitted(option);
        fitted.rect = QRect(0, 0, list_.columnWidth(index.column()), 1);
        return QStyledItemDelegate::sizeHint(fitted, index);
    }

private:
    QTreeWidget& list_;
};

} // namespace

void setUpSyncFileList(QTreeWidget& list, const QString& last) {
    list.setHeaderLabels({SyncFileList::tr("Name"), SyncFileList::tr("Size"), last});
    list.setRootIsDecorated(false);
    list.setUniformRowHeights(true);
    list.setAlternatingRowColors(true);
    list.setSelectionMode(QAbstractItemView::NoSelection);
    list.setTextElideMode(Qt::ElideMiddle);
    list.header()->setStretchLastSection(false);
    list.header()->setSectionResizeMode(0, QHeaderView::Stretch);
    list.header()->resizeSection(1, 90);
    list.header()->setSectionResizeMode(lastColumn, QHeaderView::Stretch);
}

void wrapLastColumn(QTreeWidget& list) {
    list.setUniformRowHeights(false);
    list.setWordWrap(true);
    list.setItemDelegateForColumn(lastColumn, new WrappedWords(list));
    QObject::connect(list.header(), &QHeaderView::sectionResized, &list,
                     &QTreeWidget::doItemsLayout, Qt::QueuedConnection);
}

QTreeWidgetItem* makeSyncFileRow(const QString& path, qint64 size, const QString& words) {
    auto* row = new QTreeWidgetItem({printable(path), formatBytes(size), words});
    row->setToolTip(0, plainToolTip(printable(path)));
    row->setToolTip(lastColumn, plainToolTip(words));
    row->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
    return row;
}

} // namespace tessary
