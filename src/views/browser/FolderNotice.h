#pragma once

#include "browser/model/FileBrowserViewModel.h"
#include "views/common/PlaceholderView.h"

#include <functional>

namespace tessary {

/// What stands where a folder's files would be: that it is empty, being read, gone or not to be
/// had, and what to do then.
class FolderNotice : public PlaceholderView {
    Q_OBJECT

public:
    struct Callbacks {
        std::function<bool(const QString& path)> isFavorite;
        std::function<void()> forgetFavorite; ///< the folder shown is none any more
        std::function<void()> clearFilter;
    };

    /// `browser` must outlive it.
    FolderNotice(FileBrowserViewModel& browser, Callbacks callbacks);

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
    const Callbacks callbacks_;
};

} // namespace tessary
