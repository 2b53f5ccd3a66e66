#pragma once

#include "browser/listing/EntryMimeData.h"
#include "browser/model/FileBrowserViewModel.h"

#include <QCoreApplication>

#include <functional>

class QDropEvent;

namespace tessary {

/// A folder that something is dropped on.
struct DropFolder {
    QString path;
    /// Of the entry of the listing that it is; empty for the folder shown and for places.
    QString id;
};

/// What becomes of files that are dropped on a folder of the phone that is browsed: its own entries
/// move there; those of another phone and files of this computer are copied. Shift moves all of
/// them, Ctrl copies, and Alt asks. On the main thread.
class EntryDrop {
    Q_DECLARE_TR_FUNCTIONS(tessary::EntryDrop)

public:
    struct Callbacks {
        /// Copies or moves files of this computer into a folder.
        std::function<void(const QStringList& paths, const QString& folder, EntryMimeData::Use use)>
            upload;
        /// Copies or moves a phone's entries into a folder.
        std::function<void(const EntryMimeData& entries, const QString& folder,
                           EntryMimeData::Use use)>
            take;
    };

    /// `browser` must outlive it.
    EntryDrop(FileBrowserViewModel& browser, Callbacks callbacks)
        : browser_(browser), callbacks_(std::move(callbacks)) {}

    /// Whether anything that is dragged could be dropped somewhere here.
    [[nodiscard]] bool isUsable(const QDropEvent& event) const;
    /// Whether what is dragged can be dropped on this folder. The event is accepted with what would
    /// happen, or ignored.
    bool consider(QDropEvent& event, const DropFolder& folder) const;
    void drop(QDropEvent& event, const DropFolder& folder) const;

private:
    [[nodiscard]] bool isOwn(const EntryMimeData& entries) const;

    FileBrowserViewModel& browser_;
    const Callbacks callbacks_;
};

} // namespace tessary
