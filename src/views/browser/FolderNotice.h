#pragma once

#include "browser/model/FileBrowserViewModel.h"
#include "views/common/PlaceholderView.h"

namespace tessary {

class EntryCommands;

/// What stands where a folder's files would be: that it is empty, being read, gone or not to be
/// had, and what to do then.
class FolderNotice : public PlaceholderView {
    Q_OBJECT

public:
    /// Both must outlive it; `entries` are the browser's.
    FolderNotice(FileBrowserViewModel& browser, const EntryCommands& entries);

    /// Takes over what there is to say; false when files are to be shown instead.
    [[nodiscard]] bool takeState();

    /// "3 entries could not be read."
    [[nodiscard]] static QString unreadableText(int count);

private:
    void showFolderGone();
    void showEmpty();
    void showEmptySearch();
    [[nodiscard]] bool isInApp() const;
    [[nodiscard]] bool isBeingFilled() const;

    FileBrowserViewModel& browser_;
    const EntryCommands& entries_;
};

} // namespace tessary
