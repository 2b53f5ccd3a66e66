#include "views/sync/SyncFileList.h"

#include "base/text/ByteFormat.h"
#include "base/text/Printable.h"
#include "views/common/PlainText.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QTreeWidget>

namespace tessary {

namespace {

/// The context of this file's texts.
class SyncFileList {
    Q_DECLARE_TR_FUNCTIONS(SyncFileList)
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
    list.header()->setSectionResizeMode(2, QHeaderView::Stretch);
}

QTreeWidgetItem* makeSyncFileRow(const QString& path, qint64 size, const QString& words) {
    auto* row = new QTreeWidgetItem({printable(path), formatBytes(size), words});
    row->setToolTip(0, plainToolTip(printable(path)));
    row->setToolTip(2, plainToolTip(words));
    row->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
    return row;
}

} // namespace tessary
