#pragma once

#include "browser/model/FileBrowserViewModel.h"

#include <QHash>
#include <QObject>
#include <QSet>

#include <functional>
#include <optional>
#include <vector>

class QAbstractItemView;

namespace tessary {

/// Brings a listing back to where the user left it when he goes back or forward in the history: the
/// scroll position, the selection and the current entry; also when he comes back to a phone. A
/// folder that is new to the history begins at its top. On the main thread.
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

    /// The history of one connection.
    struct Visits {
        std::vector<QString> paths;      ///< as they were last seen
        std::vector<Position> positions; ///< of them
    };

    void connectionChanged();
    void leave();
    void historyChanged();
    void folderChanged();
    void takeUp();
    [[nodiscard]] Position now() const;

    FileBrowserViewModel& browser_;
    const std::function<QAbstractItemView&()> listing_;
    QString identity_;                ///< of the connection
    Visits visits_;                   ///< of it
    QHash<QString, Visits> left_;     ///< of others
    int index_ = -1;                  ///< of the folder shown; -1 when nothing of it is known
    std::optional<Position> awaited_; ///< to be taken up once the rows are there
};

} // namespace tessary
