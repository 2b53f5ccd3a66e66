#pragma once

#include <QStyledItemDelegate>

namespace tessary {

class ThumbnailStore;

/// Draws the cells of a FileListModel: adds the icons of names, the words for kinds, and edits
/// names so that a rename begins with the name selected and not its extension.
class FileItemDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// Shows thumbnails in the place of icons. `thumbnails` must outlive the delegate.
    void setThumbnails(ThumbnailStore& thumbnails) {
        thumbnails_ = &thumbnails;
    }

    [[nodiscard]] QString displayText(const QVariant& value, const QLocale& locale) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    ThumbnailStore* thumbnails_ = nullptr;
};

} // namespace tessary
