#include "views/import/PhotoListModel.h"

#include "app/texts/DisplayNames.h"

#include "base/text/ByteFormat.h"
#include "base/text/Printable.h"
#include "views/common/PlainText.h"

#include <algorithm>

namespace tessary {

PhotoListModel::PhotoListModel(ImportViewModel& import, QObject* parent)
    : QAbstractListModel(parent), import_(import) {
    connect(&import, &ImportViewModel::photosChanged, this, &PhotoListModel::reload);
    connect(&import, &ImportViewModel::chosenChanged, this, [this] {
        if (!rows_.empty())
            Q_EMIT dataChanged(index(0), index(rowCount() - 1), {Qt::CheckStateRole});
    });
    reload();
}

void PhotoListModel::reload() {
    beginResetModel();
    rows_.clear();
    rowsById_.clear();
    const auto& photos = import_.photos();
    std::size_t dayRow = 0;
    for (std::size_t i = 0; i < photos.size(); ++i) {
        if (i == 0 || photos[i].day() != photos[i - 1].day()) {
            dayRow = rows_.size();
            rows_.push_back({i, 0});
        }
        ++rows_[dayRow].count;
        rowsById_.insert(photos[i].id(), static_cast<int>(rows_.size()));
        rows_.push_back({i, 0});
    }
    endResetModel();
}

int PhotoListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QModelIndex PhotoListModel::indexOf(const QString& id) const {
    const auto row = rowsById_.constFind(id);
    return row == rowsById_.constEnd() ? QModelIndex() : index(*row);
}

QStringList PhotoListModel::idsOf(const Row& row) const {
    QStringList ids;
    for (std::size_t i = row.first; i < row.first + std::max<std::size_t>(row.count, 1); ++i)
        ids << import_.photos()[i].id();
    return ids;
}

Qt::CheckState PhotoListModel::checkState(const Row& row) const {
    const QStringList ids = idsOf(row);
    const auto chosen = std::count_if(ids.begin(), ids.end(),
                                      [this](const QString& id) { return import_.isChosen(id); });
    return chosen == 0 ? Qt::Unchecked : chosen == ids.size() ? Qt::Checked : Qt::PartiallyChecked;
}

QVariant PhotoListModel::dataOfPhoto(const Photo& photo, int role) const {
    switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole:
        return printable(photo.files.front().name);
    case Qt::ToolTipRole: {
        QStringList lines;
        for (const FileItem& file : photo.files)
            lines << QStringLiteral("%1 (%2)").arg(printable(file.name), formatBytes(file.size));
        return plainToolTip(lines.join(u'\n'));
    }
    case idRole:
        return photo.id();
    case isVideoRole:
        return photo.isVideo();
    case filesRole:
        return static_cast<int>(photo.files.size());
    case wasFetchedRole:
        return import_.wasFetched(photo.id());
    default:
        return {};
    }
}

QVariant PhotoListModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Row& row = rows_[static_cast<std::size_t>(index.row())];
    const Photo& first = import_.photos()[row.first];
    const bool isDay = row.count > 0;
    if (role == Qt::CheckStateRole)
        return checkState(row);
    if (role == isDayRole)
        return isDay;
    if (isDay && (role == Qt::DisplayRole || role == Qt::AccessibleTextRole))
        return dayDisplayName(first.day().value_or(QDate()));
    return isDay ? QVariant() : dataOfPhoto(first, role);
}

bool PhotoListModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid) || role != Qt::CheckStateRole)
        return false;
    import_.choose(idsOf(rows_[static_cast<std::size_t>(index.row())]),
                   value.toInt() == Qt::Checked);
    return true;
}

Qt::ItemFlags PhotoListModel::flags(const QModelIndex& index) const {
    return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable
                           : Qt::NoItemFlags;
}

} // namespace tessary
