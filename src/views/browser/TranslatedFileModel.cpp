#include "views/browser/TranslatedFileModel.h"

#include "app/LanguageManager.h"
#include "app/Translations.h"

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
    const QVariant raw = FileListModel::data(index, role);
    if (role == Qt::DisplayRole && index.column() == kindColumn)
        return tessary::tr(raw.toString());
    return raw;
}

QVariant TranslatedFileModel::headerData(int section, Qt::Orientation orientation, int role) const {
    const QVariant raw = FileListModel::headerData(section, orientation, role);
    return role == Qt::DisplayRole && raw.isValid() ? tessary::tr(raw.toString()) : raw;
}

} // namespace tessary
