#pragma once

#include "browser/actions/BrowserProblem.h"
#include "phone/PhoneFileSystem.h"

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
    QStringList gonePaths;  ///< what was not there any more, nor what a copy had put there
    bool isStopped = false; ///< before the end, or right at it
    /// One report for everything that failed. A cancellation is no failure.
    std::optional<BrowserProblem> problem;
    bool isDeviceLost = false;
};

/// How far a deletion or a move of several entries is.
struct EditProgress {
    int done = 0;
    int total = 0;
};

/// Does something to one entry; blocking.
using EditAction = std::function<void(PhoneFileSystem&, const FileItem&, const std::stop_token&)>;

/// Does `action` to each entry in turn; blocking, throws nothing. A failure does not keep the
/// others from their turn, but a lost device and a stop request do. `progress` is told how many are
/// done.
[[nodiscard]] BrowserEditReport editEach(PhoneFileSystem& files, const std::vector<FileItem>& items,
                                         BrowserProblem::What what, const EditAction& action,
                                         const std::function<void(int)>& progress,
                                         const std::stop_token& stop);

/// "New Folder" in the user's language, or "New Folder 2" and so on: the first that none of `items`
/// is called, whatever its case.
[[nodiscard]] QString freeFolderName(const std::vector<FileItem>& items);

} // namespace tessary
