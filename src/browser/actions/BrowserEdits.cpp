#include "browser/actions/BrowserEdits.h"

#include "base/threads/Background.h"

#include <QPointer>

#include <algorithm>
#include <atomic>

namespace tessary {

BrowserEdits::~BrowserEdits() {
    cancel();
}

void BrowserEdits::start(std::shared_ptr<PhoneFileSystem> files, std::vector<FileItem> items,
                         BrowserProblem::What what, EditAction action, Done whenDone) {
    if (running_.empty())
        progress_ = {};
    progress_.total += static_cast<int>(items.size());
    // The main thread shows the newest count, however many there were.
    const QPointer<BrowserEdits> self(this);
    const auto shown = std::make_shared<std::atomic<bool>>(true);
    const auto done = std::make_shared<std::atomic<int>>(progress_.done);
    const auto tell = [self, shown, done, before = progress_.done](int count) {
        *done = before + count;
        if (!shown->exchange(false))
            return;
        MainThread::post([self, shown, done] {
            *shown = true;
            if (!self || !self->isRunning())
                return;
            self->progress_.done = *done;
            Q_EMIT self->changed();
        });
    };
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
