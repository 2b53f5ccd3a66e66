#pragma once

#include "browser/model/FileBrowserViewModel.h"
#include "browser/model/FileListModel.h"

class QAbstractItemView;
class QMouseEvent;

namespace tessary {

class FileItemDelegate;

// What the views of a browser's files have in common, whatever they look like.

/// Shows the files of a browser, with thumbnails. The selections of the view and of the browser
/// stay the same from now on, in both directions. The view owns the delegate.
void setUpListing(QAbstractItemView& view, FileListModel& model, FileBrowserViewModel& browser,
                  FileItemDelegate* delegate);

/// A press beside the entries drops the selection, whichever button it is: a menu is about the
/// folder then. With Ctrl or Shift the selection stays.
void dropSelectionBeside(QAbstractItemView& view, const QMouseEvent& press);

/// Drags the selected entries, under a picture of what is dragged.
void dragSelected(QAbstractItemView& view, FileBrowserViewModel& browser);

} // namespace tessary
