#include "views/listing/FileItemDelegate.h"

#include "base/text/Printable.h"
#include "browser/model/FileListModel.h"
#include "views/common/Icons.h"
#include "views/dialogs/FactsView.h"
#include "views/listing/ThumbnailStore.h"
#include "views/listing/TranslatedFileModel.h"

#include <QLineEdit>
#include <QLocale>
#include <QTimer>

#include <algorithm>

namespace tessary {

QString FileItemDelegate::displayText(const QVariant& value, const QLocale& locale) const {
    return printable(QStyledItemDelegate::displayText(value, locale));
}

QSize FileItemDelegate::sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const {
    constexpr int lowestRow = 32;
    constexpr int aroundPicture = 8;
    return QStyledItemDelegate::sizeHint(option, index)
        .expandedTo({0, std::max(lowestRow, option.decorationSize.height() + aroundPicture)});
}

void FileItemDelegate::initStyleOption(QStyleOptionViewItem* option,
                                       const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    if (index.data(TranslatedFileModel::isCutRole).toBool())
        option->state &= ~QStyle::State_Enabled; // it is on its way elsewhere
    if (index.column() == FileListModel::dateColumn)
        option->text = dateText(index.data(FileListModel::dateRole).toDateTime(),
                                QLocale::ShortFormat, option->locale);
    if (index.column() == FileListModel::sizeColumn) {
        option->displayAlignment = Qt::AlignRight | Qt::AlignVCenter;
        option->text += QChar(0x2003); // keeps it apart from the date
    }
    if (index.column() != FileListModel::nameColumn)
        return;
    option->features |= QStyleOptionViewItem::HasDecoration;
    option->icon = fileIcon(index.data(FileListModel::iconNameRole).toString());
    if (thumbnails_ == nullptr || option->widget == nullptr)
        return;
    const QPixmap thumbnail = thumbnails_->find(index.data(FileListModel::idRole).toString(),
                                                option->widget->devicePixelRatioF());
    if (thumbnail.isNull())
        return;
    option->icon = QIcon(thumbnail);
    // A selected entry's picture keeps its colours.
    option->icon.addPixmap(thumbnail, QIcon::Selected);
}

void FileItemDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    QStyledItemDelegate::setEditorData(editor, index);
    auto* line = qobject_cast<QLineEdit*>(editor);
    if (line == nullptr)
        return;
    const bool isFolder = index.data(FileListModel::isDirectoryRole).toBool();
    line->setAccessibleName(isFolder ? tr("Folder name") : tr("Name"));
    const QString name = line->text();
    const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
    const bool hasStem = dot > 0 && !isFolder;
    // The view selects everything right after this.
    QTimer::singleShot(0, line, [line, length = hasStem ? dot : name.size()] {
        line->setSelection(0, static_cast<int>(length));
    });
}

} // namespace tessary
