#pragma once

#include "browser/model/FileBrowserViewModel.h"
#include "browser/model/FileListModel.h"

class QAbstractItemView;
class QMouseEvent;

namespace tessary {

class FileItemDelegate;

// What the views of a browser's files have in common, whatever they look like.

void setUpListing(QAbstractItemView& view, FileListModel& model, FileItemDelegate* delegate);

/// A press beside the entries drops the selection, whichever button it is: a menu is about the
/// folder then. With Ctrl or Shift the selection stays.
void dropSelectionBeside(QAbstractItemView& view, const QMouseEvent& press);

/// Drags the selected entries, under a picture of what is dragged.
void dragSelected(QAbstractItemView& view, FileBrowserViewModel& browser);

/// Keeps the selection of a view and that of the browser the same, in both directions.
void connectSelection(QAbstractItemView& view, FileListModel& model, FileBrowserViewModel& browser);

} // namespace tessary
