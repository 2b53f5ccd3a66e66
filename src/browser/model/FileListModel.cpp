#include "browser/model/FileListModel.h"

#include "base/text/PathNames.h"

#include <array>

namespace tessary {

namespace {

constexpr std::array titles{QLatin1StringView("Name"), QLatin1StringView("Size"),
                            QLatin1StringView("Date Modified"), QLatin1StringView("Kind"),
                            QLatin1StringView("Folder")};

QString shownText(const FileItem& item, int column) {
    switch (column) {
    case FileListModel::nameColumn:
        return item.name;
    case FileListModel::sizeColumn:
        return item.formattedSize();
    case FileListModel::dateColumn:
        return item.modifiedDate
                   ? QLocale().toString(item.modifiedDate->toLocalTime(), QLocale::ShortFormat)
                   : QStringLiteral("--");
    case FileListModel::kindColumn:
        return rawValue(item.category());
    default:
        return {};
    }
}

} // namespace

FileListModel::FileListModel(FileBrowserViewModel& browser, QObject* parent)
    : QAbstractTableModel(parent), browser_(browser) {
    const FileRows* rows = &browser.rows();
    connect(rows, &FileRows::aboutToBeReset, this, [this] { beginResetModel(); });
    connect(rows, &FileRows::wasReset, this, [this] { endResetModel(); });
    connect(rows, &FileRows::aboutToBeInserted, this,
            [this](int first, int last) { beginInsertRows({}, first, last); });
    connect(rows, &FileRows::inserted, this, [this] { endInsertRows(); });
    connect(rows, &FileRows::aboutToBeRemoved, this,
            [this](int first, int last) { beginRemoveRows({}, first, last); });
    connect(rows, &FileRows::removed, this, [this] { endRemoveRows(); });
    connect(rows, &FileRows::aboutToBeReordered, this,
            [this] { Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint); });
    connect(rows, &FileRows::reordered, this, &FileListModel::reorder);
    connect(rows, &FileRows::changed, this, [this](int first, int last) {
        Q_EMIT dataChanged(index(first, 0), index(last, columnsInAll - 1));
    });
}

void FileListModel::reorder(const QList<int>& newRows) {
    const QModelIndexList before = persistentIndexList();
    QModelIndexList after;
    after.reserve(before.size());
    for (const QModelIndex& old : before)
        after.append(index(newRows.at(old.row()), old.column()));
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged({}, VerticalSortHint);
}

int FileListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : browser_.rows().count();
}

int FileListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columnsInAll;
}

QVariant FileListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    const FileItem& item = browser_.rows().item(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return index.column() == folderColumn ? folderOf(item) : shownText(item, index.column());
    case Qt::EditRole:
        return index.column() == nameColumn ? item.name : QVariant();
    case Qt::TextAlignmentRole:
        return index.column() == sizeColumn ? QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter)
                                            : QVariant();
    case idRole:
        return browser_.rows().id(index.row());
    case isDirectoryRole:
        return item.isDirectory;
    case iconNameRole:
        return item.iconName();
    case categoryRole:
        return static_cast<int>(item.category());
    case dateRole:
        return item.modifiedDate.value_or(QDateTime());
    default:
        return {};
    }
}

/// Where an entry lies below the folder that was searched.
QString FileListModel::folderOf(const FileItem& item) const {
    if (!browser_.files())
        return {};
    const QString folder = browser_.files()->canonicalPath(parentPath(item.path));
    const QString& shown = browser_.currentPath();
    return folder.startsWith(shown) ? folder.mid(shown.size()).remove(0, 1) : folder;
}

bool FileListModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole || !index.isValid() || index.column() != nameColumn)
        return false;
    const QString name = value.toString();
    if (name.isEmpty() || name == browser_.rows().item(index.row()).name)
        return false;
    browser_.renameItem(browser_.rows().id(index.row()), name);
    return true;
}

QVariant FileListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 ||
        section >= columnsInAll)
        return {};
    return QString(titles[static_cast<std::size_t>(section)]);
}

Qt::ItemFlags FileListModel::flags(const QModelIndex& index) const {
    if (!index.isValid())
        return Qt::NoItemFlags;
    Qt::ItemFlags flags = QAbstractTableModel::flags(index) | Qt::ItemIsDragEnabled;
    if (index.column() == nameColumn)
        flags |= Qt::ItemIsEditable;
    return flags;
}

void FileListModel::sort(int column, Qt::SortOrder order) {
    if (column >= 0 && column < folderColumn)
        browser_.setSortOrder({{static_cast<FileField>(column), order == Qt::DescendingOrder}});
}

QModelIndex FileListModel::indexOf(const QString& id) const {
    const int row = browser_.rows().rowOf(id);
    return row < 0 ? QModelIndex() : index(row, nameColumn);
}

} // namespace tessary
