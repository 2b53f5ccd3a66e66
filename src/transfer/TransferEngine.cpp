#include "transfer/TransferEngine.h"

#include "base/log/DiagnosticsLogger.h"
#include "base/threads/CancellationError.h"
#include "base/threads/ThreadName.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <thread>

namespace tessary {

namespace {

struct QueuedJob {
    QUuid id;
    TransferEngine::Work work;
    TransferEngine::Callbacks callbacks;
};

struct CurrentJob {
    QUuid id;
    std::stop_source stop;
};

void perform(QueuedJob& job, const std::stop_token& stop) {
    if (job.callbacks.onStart)
        job.callbacks.onStart();
    std::exception_ptr failure;
    try {
        job.work(
            job.callbacks.onProgress ? job.callbacks.onProgress : [](const TransferProgress&) {},
            stop);
    } catch (...) {
        failure = std::current_exception();
    }
    if (job.callbacks.onComplete)
        job.callbacks.onComplete(failure);
}

} // namespace

/// Shared with the thread, so that one that hangs in its work can be left behind.
struct TransferEngine::State {
    std::mutex mutex;
    std::condition_variable changed;
    // All guarded by mutex:
    std::deque<QueuedJob> queue;
    std::optional<CurrentJob> current;
    bool isStopping = false;
    bool hasEnded = false;
};

TransferEngine& TransferEngine::shared() {
    static TransferEngine& engine = *new TransferEngine;
    return engine;
}

TransferEngine::TransferEngine() : state_(std::make_shared<State>()) {
    std::thread([state = state_] { run(state); }).detach();
}

TransferEngine::~TransferEngine() {
    using namespace std::chrono_literals;
    if (!stop(10s))
        DiagnosticsLogger::shared().transfer.error("a transfer did not stop in time");
}

void TransferEngine::enqueue(const QUuid& id, Work work, Callbacks callbacks) {
    const std::scoped_lock lock(state_->mutex);
    if (state_->isStopping)
        return;
    state_->queue.push_back({id, std::move(work), std::move(callbacks)});
    state_->changed.notify_all();
}

void TransferEngine::cancelJob(const QUuid& id) {
    std::optional<CurrentJob> current;
    std::deque<QueuedJob> dropped;
    {
        const std::scoped_lock lock(state_->mutex);
        if (state_->current && state_->current->id == id)
            current = state_->current;
        std::deque<QueuedJob>& queue = state_->queue;
        for (auto job = queue.begin(); job != queue.end();) {
            if (job->id == id) {
                dropped.push_back(std::move(*job));
                job = queue.erase(job);
            } else {
                ++job;
            }
        }
    }
    // Stop callbacks and destructors run foreign code: without the lock.
    if (current)
        current->stop.request_stop();
}

bool TransferEngine::stop(std::chrono::milliseconds limit) {
    std::optional<CurrentJob> current;
    std::deque<QueuedJob> dropped;
    std::unique_lock lock(state_->mutex);
    state_->isStopping = true;
    current = state_->current;
    dropped.swap(state_->queue);
    state_->changed.notify_all();
    lock.unlock();
    if (current)
        current->stop.request_stop();
    lock.lock();
    return state_->changed.wait_for(lock, limit, [this] { return state_->hasEnded; });
}

void TransferEngine::run(const std::shared_ptr<State>& state) {
    nameCurrentThread("tessary-copy");
    std::unique_lock lock(state->mutex);
    while (true) {
        state->changed.wait(lock, [&] { return state->isStopping || !state->queue.empty(); });
        if (state->isStopping)
            break;
        {
            QueuedJob job = std::move(state->queue.front());
            state->queue.pop_front();
            CurrentJob current{job.id, {}};
            state->current = current;
            lock.unlock();
            perform(job, current.stop.get_token());
            // The work's captures go before the next job starts.
            job = {};
            lock.lock();
        }
        state->current.reset();
    }
    state->hasEnded = true;
    state->changed.notify_all();
}

} // namespace tessary
