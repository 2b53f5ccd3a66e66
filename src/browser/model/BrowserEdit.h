#pragma once

#include "phone/FileAccess.h"
#include "transfer/ErrorAdvice.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>
#include <stop_token>
#include <vector>

namespace tessary {

/// What changing entries of a folder came to.
struct BrowserEditReport {
    QStringList donePaths;
    /// One report for everything that failed: "Failed to delete a.txt: ...", or "Failed to delete
    /// 3 of 10 items: ..." with the first few by name. A cancellation is no failure.
    std::optional<ErrorAdvice> error;
    bool isDeviceLost = false;
};

/// Does `action` to each entry in turn; blocking, throws nothing. A failure does not keep the
/// others from their turn, but a lost device and a stop request do. `verb` is "delete", say;
/// `progress` is told how many are done.
[[nodiscard]] BrowserEditReport
editEach(FileAccess& files, const std::vector<FileItem>& items, const QString& verb,
         const std::function<void(const FileItem&, const std::stop_token&)>& action,
         const std::function<void(int)>& progress, const std::stop_token& stop);

/// "New Folder", or "New Folder 2" and so on: the first that none of `items` is called, whatever
/// its case.
[[nodiscard]] QString freeFolderName(const std::vector<FileItem>& items);

} // namespace tessary
