#pragma once

#include "browser/model/FileListModel.h"
#include "views/listing/ListingView.h"

#include <QTreeView>

namespace tessary {

class TableColumns;

/// The files as a table with sortable columns. What is beside the name of an entry that is not
/// selected is no part of it for a drag: a frame begins there that selects.
class FileTableView : public ListingView<QTreeView> {
    Q_OBJECT

public:
    FileTableView(FileBrowserViewModel& browser, FileListModel& model, QWidget* parent = nullptr);

    [[nodiscard]] TableColumns& columns() const {
        return *columns_;
    }

protected:
    [[nodiscard]] bool isHold(const QPoint& place) const override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void fitPictures();
    [[nodiscard]] bool isOnName(const QPoint& place) const;
    [[nodiscard]] QItemSelection rowsIn(const QRect& content) const;

    TableColumns* columns_;
};

} // namespace tessary
