#pragma once

#include "browser/listing/EntryMimeData.h"
#include "browser/model/FileBrowserViewModel.h"

#include <QList>

#include <memory>
#include <optional>
#include <stop_token>

namespace tessary {

/// Entries on their way out of the window. Local copies are made from the moment the drag begins;
/// a program that they are dropped on gets them once they are whole, or nothing.
class DragOutData : public EntryMimeData {
public:
    /// How long a drop waits for copies that are not there yet.
    static constexpr std::chrono::seconds patience{8};

    /// Of entries that `browser` shows.
    DragOutData(FileBrowserViewModel& browser, std::vector<FileItem> items, Use use = Use::copy);
    ~DragOutData() override;

    [[nodiscard]] bool hasFormat(const QString& mimeType) const override;
    [[nodiscard]] QStringList formats() const override;

    /// Why another program that wanted copies got none.
    [[nodiscard]] std::optional<BrowserProblem> problem() const;

protected:
    QVariant retrieveData(const QString& mimeType, QMetaType type) const override;

private:
    struct Copies {
        bool areMade = false;
        bool wereWanted = false; ///< by another program
        std::optional<BrowserProblem> problem;
        QList<QVariant> urls;
    };
    std::stop_source stop_{std::nostopstate};
    std::shared_ptr<Copies> copies_ = std::make_shared<Copies>();
};

} // namespace tessary
