#include "browser/actions/DragFiles.h"

#include "base/local/LocalError.h"
#include "base/text/ByteCount.h"
#include "base/text/PathNames.h"
#include "base/threads/Background.h"
#include "base/threads/CancellationError.h"
#include "base/threads/CombinedStopToken.h"
#include "base/threads/Deadline.h"
#include "transfer/local/LocalFileSystem.h"
#include "transfer/mount/DragMount.h"
#include "transfer/staging/StagedFiles.h"

#include <QPointer>

#include <chrono>

namespace tessary {

namespace {

using namespace std::chrono_literals;

/// How long the pointer may be kept waiting for copies.
constexpr auto patience = 2s;

using What = BrowserProblem::What;

/// One that could not be had as a file here.
BrowserProblem notFetched(const FileItem& item, const Error& error) {
    return BrowserProblem::of(What::fetch, lastComponent(item.path), error);
}

/// Copies each file. Where `until` is reached first the rest is not ready; `stop` throws.
DragFiles copyEach(PhoneFileSystem& files, const std::vector<FileItem>& items, StagedFiles& copies,
                   const ByteProgress& progress, const std::stop_token& until,
                   const std::stop_token& stop) {
    DragFiles drag;
    qint64 before = 0; // bytes of those that are here
    const CombinedStopToken either(stop, until);
    for (const FileItem& item : items) {
        const auto tell = [&progress, before](qint64 done) {
            if (progress)
                progress(before + done);
        };
        try {
            drag.localPaths << copies.fetch(files, item, tell, either.token());
        } catch (const CancellationError&) {
            throwIfStopped(stop);
            drag.notReady.push_back({What::dragLong, lastComponent(item.path), 1, 1, {}});
        } catch (const Error& error) {
            drag.notReady.push_back(notFetched(item, error));
        }
        before = addByteCounts(before, item.size);
    }
    return drag;
}

/// Copies each entry beforehand.
DragFiles copyBeforehand(PhoneFileSystem& files, const std::vector<FileItem>& items,
                         StagedFiles& copies, const std::stop_token& stop) {
    DragFiles drag;
    // With one that cannot come nothing can be dropped, and a move within the window needs no copy.
    for (const FileItem& item : items)
        if (item.isDirectory)
            drag.notReady.push_back({What::dragFolder, lastComponent(item.path), 1, 1, {}});
    if (!drag.notReady.empty())
        return drag;
    const Deadline deadline(patience);
    return copyEach(files, items, copies, {}, deadline.token(), stop);
}

/// What needs no copy: the paths, or the names that this computer cannot hold; neither when copies
/// are to be made.
DragFiles atOnce(const DragRequest& request) {
    DragFiles drag;
    for (const FileItem& item : request.items)
        if (!isSafeName(item.name) || isTooLongName(item.name))
            drag.notReady.push_back(
                notFetched(item, Error(LocalError::nameNotUsable, {lastComponent(item.path)})));
    if (!drag.notReady.empty())
        return drag;
    if (dynamic_cast<const LocalFileSystem*>(request.files.get()) != nullptr) {
        for (const FileItem& item : request.items)
            drag.localPaths << item.path;
    } else if (request.mount != nullptr) {
        drag.localPaths = request.mount->promise(request.files, request.items);
    }
    return drag;
}

bool isDecided(const DragFiles& drag) {
    return !drag.notReady.empty() || !drag.localPaths.isEmpty();
}

} // namespace

DragFiles fetchToOpen(const DragRequest& request, const ByteProgress& progress,
                      const std::stop_token& stop) {
    DragFiles drag = atOnce(request);
    return isDecided(drag)
               ? drag
               : copyEach(*request.files, request.items, request.copies, progress, {}, stop);
}

std::stop_source prepareDrag(QObject* context, DragRequest request,
                             std::function<void(const DragFiles&)> whenReady) {
    return runInBackground(
        context,
        [request = std::move(request)](const std::stop_token& stop) {
            DragFiles drag = atOnce(request);
            return isDecided(drag)
                       ? drag
                       : copyBeforehand(*request.files, request.items, request.copies, stop);
        },
        [whenReady = std::move(whenReady)](BackgroundResult<DragFiles> result) {
            if (result.succeeded())
                whenReady(result.take());
        });
}

void tellFailures(DragMount& mount, QObject* context,
                  std::function<void(const BrowserProblem&)> tell) {
    mount.reportFailuresTo([context = QPointer(context),
                            tell = std::move(tell)](const FileItem& item, const Error& error) {
        MainThread::post(
            [context, tell,
             problem = BrowserProblem::of(BrowserProblem::What::fetch, item.name, error)] {
                if (context)
                    tell(problem);
            });
    });
}

} // namespace tessary
