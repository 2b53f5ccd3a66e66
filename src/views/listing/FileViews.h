#pragma once

#include "browser/model/FileBrowserViewModel.h"
#include "browser/model/FileListModel.h"

#include <QListView>
#include <QSet>
#include <QTreeView>

class QMenu;

namespace tessary {

/// The files as a table with sortable columns.
class FileTableView : public QTreeView {
    Q_OBJECT

public:
    FileTableView(FileBrowserViewModel& browser, FileListModel& model, QWidget* parent = nullptr);

    void keyboardSearch(const QString& search) override;
    /// The user's choice of columns; also the header's menu.
    [[nodiscard]] QMenu& columnMenu() const {
        return *columnMenu_;
    }

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void startDrag(Qt::DropActions supportedActions) override;

private:
    void makeColumnMenu();
    void columnResized(int column, int oldSize, int newSize);
    void fitNames();
    void fitColumns();
    void fitPictures();

    FileBrowserViewModel& browser_;
    QMenu* columnMenu_;
    QSet<int> unwanted_; ///< columns that the user does not want to see
    bool isFittingColumns_ = false;
};

/// The files as a grid of icons.
class FileGridView : public QListView {
public:
    FileGridView(FileBrowserViewModel& browser, FileListModel& model, QWidget* parent = nullptr);

    void keyboardSearch(const QString& search) override;

    /// Entries beside one another.
    [[nodiscard]] int columns() const;

protected:
    void startDrag(Qt::DropActions supportedActions) override;

private:
    void fitPictures();

    FileBrowserViewModel& browser_;
};

/// Keeps the selection of a view and that of the browser the same, in both directions.
void connectSelection(QAbstractItemView& view, FileListModel& model, FileBrowserViewModel& browser);

} // namespace tessary
