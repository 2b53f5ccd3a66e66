#pragma once

#include "browser/model/FileListModel.h"
#include "views/listing/RubberBand.h"

#include <QTreeView>

namespace tessary {

class TableColumns;

/// The files as a table with sortable columns. What is beside the name of an entry that is not
/// selected is no part of it for a drag: a frame begins there that selects.
class FileTableView : public QTreeView {
    Q_OBJECT

public:
    FileTableView(FileBrowserViewModel& browser, FileListModel& model, QWidget* parent = nullptr);

    void keyboardSearch(const QString& search) override;
    [[nodiscard]] TableColumns& columns() const {
        return *columns_;
    }

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void startDrag(Qt::DropActions supportedActions) override;

private:
    void fitPictures();
    [[nodiscard]] bool isOnName(const QPoint& place) const;
    [[nodiscard]] QItemSelection rowsIn(const QRect& content) const;

    FileBrowserViewModel& browser_;
    TableColumns* columns_;
    RubberBand band_;
};

} // namespace tessary
