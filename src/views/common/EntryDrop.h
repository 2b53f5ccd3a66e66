#pragma once

#include "browser/model/FileBrowserViewModel.h"

#include <QObject>

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
/// move there, files of this computer are copied there. On the main thread.
class EntryDrop {
public:
    using Upload = std::function<void(const QStringList& paths, const QString& intoFolderId)>;

    /// `browser` must outlive it.
    EntryDrop(FileBrowserViewModel& browser, Upload upload)
        : browser_(browser), upload_(std::move(upload)) {}

    /// Whether anything that is dragged could be dropped somewhere here.
    [[nodiscard]] bool isUsable(const QDropEvent& event) const;
    /// Whether what is dragged can be dropped on this folder. The event is accepted with what would
    /// happen, or ignored.
    bool consider(QDropEvent& event, const DropFolder& folder) const;
    void drop(QDropEvent& event, const DropFolder& folder) const;

private:
    FileBrowserViewModel& browser_;
    const Upload upload_;
};

} // namespace tessary
