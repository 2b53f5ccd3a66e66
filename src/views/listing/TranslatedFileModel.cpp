#include "views/listing/TranslatedFileModel.h"

#include "app/LanguageManager.h"
#include "app/texts/DisplayNames.h"
#include "base/threads/Background.h"
#include "browser/listing/EntryMimeData.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeDatabase>

#include <utility>

namespace tessary {

TranslatedFileModel::TranslatedFileModel(FileBrowserViewModel& browser, QObject* parent)
    : FileListModel(browser, parent), shown_(browser) {
    connect(&LanguageManager::shared(), &LanguageManager::languageChanged, this, [this] {
        kinds_.clear();
        Q_EMIT headerDataChanged(Qt::Horizontal, 0, columnsInAll - 1);
        allChanged();
    });
    runInBackground(
        this, [] { (void)QMimeDatabase().mimeTypeForName(QStringLiteral("text/plain")).comment(); },
        [this](BackgroundResult<void>) {
            areKindsRead_ = true;
            allChanged();
        });
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this,
            &TranslatedFileModel::takeClipboard);
    connect(&browser, &FileBrowserViewModel::connectionChanged, this,
            &TranslatedFileModel::takeClipboard);
    takeClipboard();
}

void TranslatedFileModel::allChanged() {
    if (const int rows = rowCount(); rows > 0)
        Q_EMIT dataChanged(index(0, 0), index(rows - 1, columnsInAll - 1));
}

void TranslatedFileModel::takeClipboard() {
    QSet<QString> cut;
    const auto* entries =
        qobject_cast<const EntryMimeData*>(QGuiApplication::clipboard()->mimeData());
    if (entries != nullptr && entries->use() == EntryMimeData::Use::move && shown_.files() &&
        entries->identity() == shown_.files()->identity())
        for (const FileItem& item : entries->items())
            cut.insert(item.id());
    if (std::exchange(cut_, cut) != cut)
        allChanged();
}

QString TranslatedFileModel::kindOf(const QModelIndex& index) const {
    const QString category =
        displayName(static_cast<FileCategory>(FileListModel::data(index, categoryRole).toInt()));
    if (FileListModel::data(index, isDirectoryRole).toBool())
        return category;
    return desktopKindOf(shown_.rows().item(index.row()).name).value_or(category);
}

/// No value while the list is read, and for what it does not know.
std::optional<QString> TranslatedFileModel::desktopKindOf(const QString& fileName) const {
    constexpr qsizetype mostEndings = 1000; // phones make up endings without end
    const qsizetype dot = fileName.lastIndexOf(QLatin1Char('.'));
    if (!areKindsRead_ || dot < 0)
        return std::nullopt;
    const QString ending = fileName.mid(dot).toLower();
    auto known = kinds_.constFind(ending);
    if (known == kinds_.constEnd()) {
        if (kinds_.size() >= mostEndings)
            kinds_.clear();
        const QMimeType type = QMimeDatabase().mimeTypeForFile(QLatin1Char('x') + ending,
                                                               QMimeDatabase::MatchExtension);
        QString kind = type.isDefault() ? QString() : type.comment();
        if (!kind.isEmpty())
            kind[0] = kind[0].toUpper(); // "plain text document" stands beside "Folder"
        known = kinds_.insert(ending, std::move(kind));
    }
    return known->isEmpty() ? std::nullopt : std::optional(*known);
}

/// The heading that the entry stands under, for who does not see it.
QString TranslatedFileModel::dayOf(int row) const {
    const FileRows& rows = shown_.rows();
    if (!rows.groupsByDay() || rows.isFolder(row))
        return {};
    const qint64 day = rows.day(row);
    return dayDisplayName(day == FileListing::noDay ? QDate() : QDate::fromJulianDay(day));
}

QVariant TranslatedFileModel::data(const QModelIndex& index, int role) const {
    if (role == Qt::DisplayRole && index.column() == kindColumn)
        return kindOf(index);
    if (role == Qt::AccessibleDescriptionRole)
        return dayOf(index.row());
    if (role == isCutRole)
        return !cut_.isEmpty() && cut_.contains(FileListModel::data(index, idRole).toString());
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
