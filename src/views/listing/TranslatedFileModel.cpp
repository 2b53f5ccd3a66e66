#include "views/listing/TranslatedFileModel.h"

#include "app/LanguageManager.h"
#include "app/texts/DisplayNames.h"

namespace tessary {

TranslatedFileModel::TranslatedFileModel(FileBrowserViewModel& browser, QObject* parent)
    : FileListModel(browser, parent) {
    connect(&LanguageManager::shared(), &LanguageManager::languageChanged, this, [this] {
        Q_EMIT headerDataChanged(Qt::Horizontal, 0, columnsInAll - 1);
        if (const int rows = rowCount(); rows > 0)
            Q_EMIT dataChanged(index(0, 0), index(rows - 1, columnsInAll - 1));
    });
}

QVariant TranslatedFileModel::data(const QModelIndex& index, int role) const {
    if (role == Qt::DisplayRole && index.column() == kindColumn)
        return displayName(
            static_cast<FileCategory>(FileListModel::data(index, categoryRole).toInt()));
    return FileListModel::data(index, role);
}

QVariant TranslatedFileModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return FileListModel::headerData(section, orientation, role);
    switch (section) {
    case nameColumn:
        return tr("Name");
    case sizeColumn:
        return tr("Size");
    case dateColumn:
        return tr("Date Modified");
    case kindColumn:
        return tr("Kind");
    case folderColumn:
        return tr("Folder");
    default:
        return {};
    }
}

} // namespace tessary
