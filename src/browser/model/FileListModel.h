#pragma once

#include "browser/model/FileBrowserViewModel.h"

#include <QAbstractTableModel>

namespace tessary {

/// The rows of a file browser as a table: name, size, date, kind, and for what a search has found
/// the folder. The texts are raw: views pass the kind and the column titles through tr. Sorting by
/// a column sorts the browser. On the main thread.
class FileListModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { nameColumn, sizeColumn, dateColumn, kindColumn, folderColumn, columnsInAll };
    enum Role {
        idRole = Qt::UserRole + 1,
        isDirectoryRole,
        iconNameRole, ///< FileItem::iconName()
        categoryRole, ///< int of FileCategory
        dateRole,     ///< QDateTime; invalid when unknown
    };

    /// `browser` must outlive the model.
    explicit FileListModel(FileBrowserViewModel& browser, QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    /// Qt::EditRole of a name renames the entry; the row changes once the phone has done it.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;
    /// Names can be edited, and entries dragged.
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    void sort(int column, Qt::SortOrder order) override;

    /// The first column's index of an entry; invalid when it is not shown.
    [[nodiscard]] QModelIndex indexOf(const QString& id) const;

private:
    [[nodiscard]] QString folderOf(const FileItem& item) const;
    void reorder(const QList<int>& newRows);

    FileBrowserViewModel& browser_;
};

} // namespace tessary
