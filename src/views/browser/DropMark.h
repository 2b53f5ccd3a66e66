#pragma once

#include "browser/model/FileBrowserViewModel.h"
#include "views/common/EntryDrop.h"

#include <QRubberBand>

#include <functional>

class QAbstractItemView;
class QDropEvent;
class QStackedWidget;

namespace tessary {

/// The frame around the folder of a listing that a drop would go to. Positions are those of the
/// widget that the pages lie in.
class DropMark : public QRubberBand {
    Q_OBJECT

public:
    /// `listing` gives the view that is shown; it is one of `pages` when files are. All outlive it.
    DropMark(FileBrowserViewModel& browser, const EntryDrop& drops,
             std::function<QAbstractItemView*()> listing, QStackedWidget& pages);

    /// Shows where what is dragged would go, and accepts the event; false when it goes nowhere.
    [[nodiscard]] bool follow(QDropEvent& event);
    /// The name of the folder that is marked, as it is on the phone.
    [[nodiscard]] const QString& targetName() const {
        return targetName_;
    }
    /// The folder of the listing at a position, or the one that is shown; none beside the listing.
    [[nodiscard]] DropFolder folderUnder(const QPoint& position) const;

private:
    FileBrowserViewModel& browser_;
    const EntryDrop& drops_;
    const std::function<QAbstractItemView*()> listing_;
    QStackedWidget& pages_;
    QString targetName_;
};

} // namespace tessary
