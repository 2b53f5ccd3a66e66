#pragma once

#include <QStyledItemDelegate>

namespace tessary {

/// Draws the cells of a FileListModel: adds the icons of names, the words for kinds, and edits
/// names so that a rename begins with the name selected and not its extension.
class FileItemDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QString displayText(const QVariant& value, const QLocale& locale) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

} // namespace tessary
