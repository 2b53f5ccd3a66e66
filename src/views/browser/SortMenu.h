#pragma once

#include "browser/listing/FileSortOrder.h"

#include <QMenu>

#include <vector>

class QAbstractItemModel;

namespace tessary {

class FileBrowserViewModel;

/// By what the files of a browser are sorted, and which way round; for the grid, which has no
/// columns to click on, and for the keyboard.
class SortMenu : public QMenu {
    Q_OBJECT

public:
    /// `columns` has the names of what can be sorted by. Both must outlive it.
    SortMenu(FileBrowserViewModel& browser, const QAbstractItemModel& columns,
             QWidget* parent = nullptr);

private:
    void choose(const FileComparator& order);
    void showOrder();
    [[nodiscard]] FileComparator order() const;

    FileBrowserViewModel& browser_;
    const QAbstractItemModel& columns_;
    std::vector<QAction*> fields_; ///< as FileField counts them
    QAction* ascending_;
    QAction* descending_;
};

} // namespace tessary
