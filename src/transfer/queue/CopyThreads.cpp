#include "transfer/queue/CopyThreads.h"

#include "base/log/DiagnosticsLogger.h"
#include "base/threads/ThreadName.h"

#include <condition_variable>
#include <list>
#include <mutex>
#include <thread>

namespace tessary {

/// Shared with the threads, so that one that hangs can be left behind.
struct CopyThreads::State {
    std::mutex mutex;
    std::condition_variable changed;
    std::list<std::stop_source> running; ///< guarded, as is the next
    bool isStopping = false;
};

CopyThreads::CopyThreads() : state_(std::make_shared<State>()) {}

CopyThreads::~CopyThreads() {
    using namespace std::chrono_literals;
    if (!stop(10s))
        DiagnosticsLogger::shared().transfer.error("a copy did not stop in time");
}

std::stop_source CopyThreads::start(TreeCopyRequest request, Callbacks callbacks) {
    std::stop_source stop;
    const std::scoped_lock lock(state_->mutex);
    if (state_->isStopping)
        return stop;
    const auto self = state_->running.insert(state_->running.end(), stop);
    std::thread([state = state_, self, stop, request = std::move(request),
                 callbacks = std::move(callbacks)]() mutable {
        nameCurrentThread("tessary-copy");
        {
            const Callbacks told = std::move(callbacks);
            TreeCopy copy(std::move(request));
            CopyOutcome outcome = copy.run(told.onProgress, stop.get_token());
            told.onEnd(std::move(outcome));
        }
        const std::scoped_lock ended(state->mutex);
        state->running.erase(self);
        state->changed.notify_all();
    }).detach();
    return stop;
}

bool CopyThreads::stop(std::chrono::milliseconds limit) {
    std::unique_lock lock(state_->mutex);
    state_->isStopping = true;
    const std::list<std::stop_source> running = state_->running;
    lock.unlock(); // what hears of it runs code of others
    for (std::stop_source one : running)
        one.request_stop();
    lock.lock();
    return state_->changed.wait_for(lock, limit, [this] { return state_->running.empty(); });
}

} // namespace tessary
