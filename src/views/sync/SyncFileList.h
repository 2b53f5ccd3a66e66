#pragma once

#include <QString>

class QTreeWidget;
class QTreeWidgetItem;

namespace tessary {

/// Sets a list up for files that a sync is about: name, size and, under the heading `last`, what
/// there is to say of each.
void setUpSyncFileList(QTreeWidget& list, const QString& last);

/// Shows what there is to say of each file whole, on as many lines as it takes.
void wrapLastColumn(QTreeWidget& list);

/// A row of it. The path is the device's or the disk's own: hostile.
[[nodiscard]] QTreeWidgetItem* makeSyncFileRow(const QString& path, qint64 size,
                                               const QString& words);

} // namespace tessary
