#include "browser/actions/OpenFetch.h"

#include "base/text/ByteCount.h"
#include "base/threads/Background.h"
#include "base/threads/TellLatest.h"

#include <utility>

namespace tessary {

OpenFetch::OpenFetch(DragRequest request, QObject* parent) : QObject(parent) {
    qint64 total = 0;
    for (const FileItem& item : request.items)
        total = addByteCounts(total, item.size);
    const auto tell =
        tellLatest<qint64>(this, [this, total](qint64 done) { Q_EMIT progress(done, total); });
    stop_ = runInBackground(
        this,
        [request = std::move(request), tell](const std::stop_token& stop) {
            return fetchToOpen(request, tell, stop);
        },
        [this](BackgroundResult<DragFiles> result) {
            if (stop_.stop_requested() || !result.succeeded())
                return; // it was cancelled, maybe right before its end
            const DragFiles files = result.take();
            if (!files.localPaths.isEmpty())
                Q_EMIT ready(files.localPaths);
            if (!files.notReady.empty())
                Q_EMIT failed(files.notReady.front());
        });
}

OpenFetch::~OpenFetch() {
    stop_.request_stop();
}

} // namespace tessary
