#include "base/log/LogQueue.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <utility>

namespace tessary {

struct LogQueue::State {
    std::function<void(const LogRecord&)> write;
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<LogRecord> waiting; ///< the first one is being written
    std::size_t dropped = 0;
    bool isEnded = false;
};

LogQueue::LogQueue(std::function<void(const LogRecord&)> write)
    : state_(std::make_shared<State>()) {
    state_->write = std::move(write);
    std::thread([state = state_] { work(state); }).detach();
}

LogQueue::~LogQueue() {
    constexpr std::chrono::milliseconds patience{300};
    std::unique_lock lock(state_->mutex);
    state_->changed.wait_for(lock, patience, [this] { return state_->waiting.empty(); });
    state_->isEnded = true;
    state_->changed.notify_all();
}

void LogQueue::add(const LogRecord& record) {
    const std::scoped_lock lock(state_->mutex);
    if (state_->waiting.size() >= mostWaiting) {
        ++state_->dropped;
        return;
    }
    if (const std::size_t dropped = std::exchange(state_->dropped, 0))
        state_->waiting.push_back({record.category, LogLevel::error,
                                   QStringLiteral("%1 messages were dropped").arg(dropped)});
    state_->waiting.push_back(record);
    state_->changed.notify_all();
}

void LogQueue::work(const std::shared_ptr<State>& state) {
    std::unique_lock lock(state->mutex);
    while (true) {
        state->changed.wait(lock, [&] { return state->isEnded || !state->waiting.empty(); });
        if (state->isEnded)
            return;
        const LogRecord record = state->waiting.front();
        lock.unlock();
        state->write(record);
        lock.lock();
        state->waiting.pop_front();
        state->changed.notify_all();
    }
}

} // namespace tessary
