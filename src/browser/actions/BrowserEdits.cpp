#include "browser/actions/BrowserEdits.h"

#include "base/threads/Background.h"
#include "base/threads/TellLatest.h"

#include <algorithm>

namespace tessary {

BrowserEdits::~BrowserEdits() {
    cancel();
}

void BrowserEdits::start(std::shared_ptr<PhoneFileSystem> files, std::vector<FileItem> items,
                         BrowserProblem::What what, EditAction action, Done whenDone) {
    if (running_.empty())
        progress_ = {};
    progress_.total += static_cast<int>(items.size());
    const auto tell = tellLatest<int>(this, [this, before = progress_.done](int count) {
        if (!isRunning())
            return;
        progress_.done = before + count;
        Q_EMIT changed();
    });
    const auto source = std::make_shared<std::stop_source>(std::nostopstate);
    *source = runInBackground(
        this,
        [files = std::move(files), items = std::move(items), what, action = std::move(action),
         tell](const std::stop_token& stop) {
            return editEach(*files, items, what, action, tell, stop);
        },
        [this, source, whenDone = std::move(whenDone)](BackgroundResult<BrowserEditReport> result) {
            running_.erase(std::find(running_.begin(), running_.end(), *source));
            Q_EMIT changed();
            whenDone(result.succeeded() ? result.take() : BrowserEditReport());
        });
    running_.push_back(*source);
    Q_EMIT changed();
}

void BrowserEdits::cancel() {
    for (std::stop_source& stop : running_)
        stop.request_stop();
}

} // namespace tessary
