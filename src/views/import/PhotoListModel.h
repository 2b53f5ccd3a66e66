#pragma once

#include "browser/model/ImportViewModel.h"

#include <QAbstractListModel>

#include <vector>

namespace tessary {

/// The photos of an import, under a row for each day. What is chosen is checked; checking a day
/// chooses all of it.
class PhotoListModel : public QAbstractListModel {
    Q_OBJECT

public:
    enum Role {
        idRole = Qt::UserRole, ///< Photo::id(); empty for a day
        isDayRole,
        isVideoRole,
        filesRole, ///< number of files of a photo
        wasFetchedRole,
    };

    /// `import` must outlive it.
    explicit PhotoListModel(ImportViewModel& import, QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// Invalid for what is not shown.
    [[nodiscard]] QModelIndex indexOf(const QString& id) const;

private:
    struct Row {
        std::size_t first = 0; ///< photo
        std::size_t count = 0; ///< of a day; 0 for a photo
    };

    void reload();
    [[nodiscard]] QStringList idsOf(const Row& row) const;
    [[nodiscard]] Qt::CheckState checkState(const Row& row) const;
    [[nodiscard]] QVariant dataOfPhoto(const Photo& photo, int role) const;

    ImportViewModel& import_;
    std::vector<Row> rows_;
    QHash<QString, int> rowsById_;
};

} // namespace tessary
