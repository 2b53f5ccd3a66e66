#pragma once

#include "browser/model/FileBrowserViewModel.h"

namespace tessary {

/// The folder that a browser shows when this is made. After a question to the user it tells whether
/// it is still shown: ids of another phone's entries look the same.
class ShownFolder {
public:
    /// `browser` must outlive it.
    explicit ShownFolder(FileBrowserViewModel& browser)
        : browser_(browser), files_(identity(browser)), path_(browser.currentPath()) {}

    /// When it is not, the user is told so.
    [[nodiscard]] bool isStillShown() const {
        const bool isShown = files_ == identity(browser_) && path_ == browser_.currentPath();
        if (!isShown)
            browser_.showProblem({BrowserProblem::What::otherFolder, {}, 1, 1, {}});
        return isShown;
    }

private:
    static QString identity(const FileBrowserViewModel& browser) {
        return browser.files() == nullptr ? QString() : browser.files()->identity();
    }

    FileBrowserViewModel& browser_;
    const QString files_;
    const QString path_;
};

} // namespace tessary
