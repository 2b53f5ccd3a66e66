#pragma once

#include "browser/model/FileBrowserViewModel.h"

#include <vector>

namespace tessary {

/// The entries that a browser shows, in the order of its rows.
inline std::vector<FileItem> shownItems(const FileBrowserViewModel& browser) {
    std::vector<FileItem> shown;
    for (int row = 0; row < browser.rows().count(); ++row)
        shown.push_back(browser.rows().item(row));
    return shown;
}

} // namespace tessary
