#pragma once

#include "browser/model/FileBrowserViewModel.h"

#include <QObject>
#include <QSet>

#include <functional>
#include <optional>
#include <vector>

class QAbstractItemView;

namespace tessary {

/// Brings a listing back to where the user left it when he goes back or forward in the history: the
/// scroll position, the selection and the current entry. A folder that is new to the history begins
/// at its top. On the main thread.
class FolderPositions : public QObject {
public:
    /// `browser` must outlive it. `listing` gives the view that is shown.
    FolderPositions(FileBrowserViewModel& browser, std::function<QAbstractItemView&()> listing,
                    QObject* parent);

private:
    struct Position {
        int scroll = 0; ///< pixels
        QSet<QString> selected;
        QString current;
    };

    void startOver();
    void historyChanged();
    void folderChanged();
    void takeUp();
    [[nodiscard]] Position now() const;

    FileBrowserViewModel& browser_;
    const std::function<QAbstractItemView&()> listing_;
    std::vector<QString> paths_;      ///< the history as it was last seen
    std::vector<Position> positions_; ///< of its entries
    int index_ = -1;
    std::optional<Position> awaited_; ///< to be taken up once the rows are there
};

} // namespace tessary
