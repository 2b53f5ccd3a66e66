#pragma once

#include "browser/actions/BrowserProblem.h"
#include "phone/PhoneFileSystem.h"

#include <QObject>
#include <QStringList>

#include <functional>
#include <memory>
#include <stop_token>
#include <utility>
#include <vector>

namespace tessary {

class DragMount;
class StagedFiles;

/// Local copies for dragging entries out.
struct DragFiles {
    QStringList localPaths;
    std::vector<BrowserProblem> notReady; ///< why, for each that is not; then there are no paths
};

/// What is to be had as local files.
struct DragRequest {
    std::shared_ptr<PhoneFileSystem> files;
    std::vector<FileItem> items;
    DragMount* mount = nullptr;
    StagedFiles& copies;
};

/// Local paths for entries; those of this computer have theirs. Where this system can show them on
/// demand (`mount` is not null) they are there at once, and copied as another program reads them;
/// elsewhere they are copied beforehand into `copies`: folders, and what takes more than about two
/// seconds, are not ready then. `whenReady` is called on the main thread; not when it was asked to
/// stop, or `context` is gone by then.
std::stop_source prepareDrag(QObject* context, DragRequest request,
                             std::function<void(const DragFiles&)> whenReady);
/// The same for files that somebody wants to open: what has to be copied takes as long as it takes.
/// `progress` gets the bytes of all. Blocking; throws nothing but CancellationError.
[[nodiscard]] DragFiles fetchToOpen(const DragRequest& request, const ByteProgress& progress,
                                    const std::stop_token& stop);

/// Has what goes wrong with files that other programs read told on the main thread, while `context`
/// is there.
void tellFailures(DragMount& mount, QObject* context,
                  std::function<void(const BrowserProblem&)> tell);

} // namespace tessary
