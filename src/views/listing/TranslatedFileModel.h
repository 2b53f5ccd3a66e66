#pragma once

#include "browser/model/FileListModel.h"

namespace tessary {

/// The rows of the browser with the column titles and kinds in the interface's language.
class TranslatedFileModel : public FileListModel {
    Q_OBJECT

public:
    /// `browser` must outlive the model.
    explicit TranslatedFileModel(FileBrowserViewModel& browser, QObject* parent = nullptr);

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;
};

} // namespace tessary
