#pragma once

#include "base/threads/Background.h"
#include "base/threads/CancellationError.h"

#include <chrono>
#include <functional>
#include <memory>
#include <stdexcept>
#include <stop_token>
#include <type_traits>
#include <utility>

namespace tessary {

/// Thrown to whoever waits for a queue whose running work has shown no sign of life for too long.
class QueueStalled : public std::runtime_error {
public:
    QueueStalled() : std::runtime_error("The device does not answer.") {}
};

/// Thrown to whoever was asked to stop while his work ran, and did not end soon afterwards.
class LeftBehind : public CancellationError {};

/// Runs pieces of work one after the other, first in first out, on a thread of its own. Made for
/// calls that cannot be interrupted: a caller that is asked to stop, or that has waited too long
/// for a silent call, is let go, while the call goes on alone and the next one after it.
/// Thread-safe; not to be called from its own work.
class SerialQueue {
    struct Task;

public:
    struct Patience {
        /// How long a caller that was asked to stop waits for its running work to notice.
        std::chrono::milliseconds afterStop{1000};
        /// How long one call may say nothing.
        std::chrono::milliseconds ofSilence{45'000};
    };

    /// `name` is the thread's; what is over 15 characters is cut off.
    explicit SerialQueue(const char* name) : SerialQueue(name, Patience{}) {}
    SerialQueue(const char* name, Patience patience);
    /// finish() with a limit of Patience::afterStop. Work that still runs then is left behind.
    ~SerialQueue();
    SerialQueue(const SerialQueue&) = delete;
    SerialQueue& operator=(const SerialQueue&) = delete;

    /// Runs `work` on the queue's thread and returns or throws what it does. CancellationError
    /// when `stop` asks before it has begun (it then never runs), as LeftBehind when it does not
    /// end soon afterwards; QueueStalled after Patience::ofSilence. In both last cases the work
    /// goes on without its caller: it must own or outlive all that it uses.
    template <typename Work>
    auto run(Work work, const std::stop_token& stop = {}) {
        return start(std::move(work)).get(stop);
    }

    /// Work that was given to the queue and is waited for later, by one thread. Not to be waited
    /// for once the queue is gone; it may go without having been waited for.
    template <typename T>
    class Started {
    public:
        /// Returns or throws as run() does. Once.
        T get(const std::stop_token& stop = {}) {
            queue_->waitFor(task_, stop);
            return (*result_)->take();
        }

    private:
        friend class SerialQueue;
        SerialQueue* queue_ = nullptr;
        std::shared_ptr<Task> task_;
        std::shared_ptr<std::optional<BackgroundResult<T>>> result_;
    };

    /// run() in two steps: the caller does something else meanwhile.
    template <typename Work>
    auto start(Work work) {
        using T = std::invoke_result_t<Work&>;
        Started<T> started;
        started.queue_ = this;
        started.result_ = std::make_shared<std::optional<BackgroundResult<T>>>();
        // Shared, since what is copied has to be copyable, and the work need not be.
        const auto owned = std::make_shared<Work>(std::move(work));
        started.task_ = add([owned, result = started.result_] {
            result->emplace(detail::resultOf<T>(*owned, std::stop_token()));
        });
        return started;
    }

    /// Has `work` run without anybody waiting for it. It must not throw.
    void post(std::function<void()> work);

    /// Nothing runs and nothing waits.
    [[nodiscard]] bool isIdle() const;

    /// Waits until all work is done, and ends the thread. False when it has not within `limit`:
    /// what has not begun is done later, on the thread that is left behind. Nothing can be added
    /// afterwards.
    bool finish(std::chrono::milliseconds limit);

private:
    struct State;
    /// Null when the queue is over.
    [[nodiscard]] std::shared_ptr<Task> add(std::function<void()> work);
    void waitFor(const std::shared_ptr<Task>& task, const std::stop_token& stop);
    static void serve(const std::shared_ptr<State>& state);

    std::shared_ptr<State> state_; ///< shared with the thread
};

} // namespace tessary
