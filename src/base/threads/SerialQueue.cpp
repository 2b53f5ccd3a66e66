#include "base/threads/SerialQueue.h"

#include "base/threads/CancellationError.h"
#include "base/threads/ThreadName.h"

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <string>
#include <thread>

namespace tessary {

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

} // namespace

struct SerialQueue::Task {
    enum class Stage { waiting, running, done };
    std::function<void()> work;
    Stage stage = Stage::waiting;
};

struct SerialQueue::State {
    State(const char* threadName, Patience given) : name(threadName), patience(given) {}

    const std::string name;
    const Patience patience;

    std::mutex mutex;
    std::condition_variable_any changed;
    // All guarded by mutex:
    std::deque<std::shared_ptr<Task>> waiting;
    bool isRunning = false;
    bool isOver = false;
    bool hasEnded = false;
    Clock::time_point lastProgress = Clock::now(); ///< a call began or ended

    /// When whoever waits has to give up, unless there is progress before.
    [[nodiscard]] Clock::time_point end() const {
        return lastProgress + patience.ofSilence;
    }
};

SerialQueue::SerialQueue(const char* name, Patience patience)
    : state_(std::make_shared<State>(name, patience)) {
    std::thread([state = state_] { serve(state); }).detach();
}

SerialQueue::~SerialQueue() {
    (void)finish(state_->patience.afterStop);
}

void SerialQueue::post(std::function<void()> work) {
    (void)add(std::move(work));
}

std::shared_ptr<SerialQueue::Task> SerialQueue::add(std::function<void()> work) {
    const std::scoped_lock lock(state_->mutex);
    if (state_->isOver)
        return nullptr;
    if (!state_->isRunning && state_->waiting.empty())
        state_->lastProgress = Clock::now();
    auto task = std::make_shared<Task>(Task{std::move(work)});
    state_->waiting.push_back(task);
    state_->changed.notify_all();
    return task;
}

bool SerialQueue::isIdle() const {
    const std::scoped_lock lock(state_->mutex);
    return !state_->isRunning && state_->waiting.empty();
}

void SerialQueue::waitFor(const std::shared_ptr<Task>& task, const std::stop_token& stop) {
    if (!task)
        throw CancellationError();
    const std::shared_ptr<State> state = state_;
    std::unique_lock lock(state->mutex);
    const auto isDone = [&] { return task->stage == Task::Stage::done; };
    // The wait ends early when a stop is asked for; progress prolongs it. Who finds the queue
    // stuck waits a moment: what it was stuck in may just have been ended.
    const auto atLeast = Clock::now() + state->patience.afterStop;
    const auto end = [&] { return std::max(state->end(), atLeast); };
    bool stoodStill = false;
    while (!isDone() && !stop.stop_requested() && Clock::now() < end()) {
        const auto expected = end();
        state->changed.wait_until(lock, stop, expected, isDone);
        // Whoever wakes long after the end did not run meanwhile, and the work neither: it gets its
        // time anew, once.
        if (!stoodStill && Clock::now() >= expected + 1s) {
            stoodStill = true;
            state->lastProgress = Clock::now();
        }
    }
    if (!isDone() && stop.stop_requested() && task->stage == Task::Stage::running)
        state->changed.wait_for(lock, state->patience.afterStop, isDone);
    if (isDone())
        return;
    std::erase(state->waiting, task);
    if (stop.stop_requested() && task->stage == Task::Stage::running)
        throw LeftBehind();
    if (stop.stop_requested())
        throw CancellationError();
    throw QueueStalled();
}

bool SerialQueue::finish(std::chrono::milliseconds limit) {
    std::unique_lock lock(state_->mutex);
    state_->isOver = true;
    state_->changed.notify_all();
    return state_->changed.wait_for(lock, limit, [this] { return state_->hasEnded; });
}

void SerialQueue::serve(const std::shared_ptr<State>& state) {
    nameCurrentThread(state->name.c_str());
    std::unique_lock lock(state->mutex);
    while (true) {
        state->changed.wait(lock, [&] { return state->isOver || !state->waiting.empty(); });
        if (state->waiting.empty())
            break;
        const std::shared_ptr<Task> task = std::move(state->waiting.front());
        state->waiting.pop_front();
        task->stage = Task::Stage::running;
        state->isRunning = true;
        state->lastProgress = Clock::now();
        lock.unlock();
        task->work();
        // What the work holds goes here, not with a caller that was let go.
        task->work = nullptr;
        lock.lock();
        state->lastProgress = Clock::now();
        state->isRunning = false;
        task->stage = Task::Stage::done;
        state->changed.notify_all();
    }
    state->hasEnded = true;
    state->changed.notify_all();
}

} // namespace tessary
