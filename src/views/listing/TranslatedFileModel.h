#pragma once

#include "browser/model/FileListModel.h"

#include <QHash>
#include <QSet>

#include <optional>

namespace tessary {

/// The rows of the browser with the column titles and kinds in the interface's language, and with
/// what was cut and not pasted yet. Kinds are what the desktop calls files by their names ("PDF
/// document"); its list is read in the background once.
class TranslatedFileModel : public FileListModel {
    Q_OBJECT

public:
    /// Whether an entry lies on the clipboard to be moved.
    static constexpr int isCutRole = Qt::UserRole + 100;

    /// `browser` must outlive the model.
    explicit TranslatedFileModel(FileBrowserViewModel& browser, QObject* parent = nullptr);

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;

private:
    [[nodiscard]] QString kindOf(const QModelIndex& index) const;
    [[nodiscard]] std::optional<QString> desktopKindOf(const QString& fileName) const;
    [[nodiscard]] QString dayOf(int row) const;
    void takeClipboard();
    void allChanged();

    FileBrowserViewModel& shown_;
    bool areKindsRead_ = false;
    mutable QHash<QString, QString> kinds_; ///< by ending; empty texts for what is not known
    QSet<QString> cut_;                     ///< ids
};

} // namespace tessary
