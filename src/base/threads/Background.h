#pragma once

#include "base/threads/MainThread.h"

#include <QObject>
#include <QPointer>

#include <chrono>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <type_traits>
#include <utility>
#include <variant>

namespace tessary {

/// What work in the background came to: a value, or what it threw.
template <typename T>
class BackgroundResult {
public:
    using Value = std::conditional_t<std::is_void_v<T>, std::monostate, T>;

    explicit BackgroundResult(Value value) : value_(std::move(value)) {}
    explicit BackgroundResult(std::exception_ptr error) : error_(std::move(error)) {}

    [[nodiscard]] bool succeeded() const {
        return error_ == nullptr;
    }
    /// The value; throws what the work threw.
    T take() {
        if (error_)
            std::rethrow_exception(error_);
        if constexpr (!std::is_void_v<T>)
            return std::move(*value_);
    }
    [[nodiscard]] const std::exception_ptr& error() const {
        return error_;
    }

private:
    std::optional<Value> value_;
    std::exception_ptr error_;
};

/// The threads that runInBackground works on, named "tessary-bg-<n>".
class Background {
public:
    /// Work above this number at a time waits for its turn.
    static constexpr std::size_t maxThreads = 12;

    /// Asks everything under way to stop, drops what has not begun, and waits until the threads
    /// have ended. False when they have not within `limit`; they are then left behind and must not
    /// find anything destroyed that they use. Nothing can be started afterwards until the next
    /// call of restart().
    [[nodiscard]] static bool shutDown(std::chrono::milliseconds limit);

    /// Allows new work after shutDown(). For tests that start and end in one process.
    static void restart();

    /// Work without a result; `work` must not throw. The way in for runInBackground and
    /// endInBackground only.
    static void start(std::function<void()> work, const std::stop_source& stop);
};

namespace detail {

template <typename Work>
auto callWithStop(Work& work, const std::stop_token& stop) {
    if constexpr (std::is_invocable_v<Work&, const std::stop_token&>)
        return work(stop);
    else
        return work();
}

template <typename T, typename Work>
BackgroundResult<T> resultOf(Work& work, const std::stop_token& stop) {
    try {
        if constexpr (std::is_void_v<T>) {
            callWithStop(work, stop);
            return BackgroundResult<T>(std::monostate());
        } else {
            return BackgroundResult<T>(callWithStop(work, stop));
        }
    } catch (...) {
        return BackgroundResult<T>(std::current_exception());
    }
}

} // namespace detail

/// Runs `work(stop token)` or `work()` on another thread and then `whenDone(BackgroundResult<T>)`
/// on the main thread. `whenDone` is dropped when `context` is gone by then; the work itself goes
/// on, and must own or outlive what it uses. Called on the main thread, where `context` lives.
/// Returns what asks the work to stop; it may be ignored.
template <typename Work, typename Done>
std::stop_source runInBackground(QObject* context, Work work, Done whenDone) {
    using T = decltype(detail::callWithStop(work, std::stop_token()));
    MainThread::assertCurrent();
    std::stop_source stop;
    // Shared, since both closures travel through std::function, which copies.
    auto task = std::make_shared<Work>(std::move(work));
    auto done = std::make_shared<Done>(std::move(whenDone));
    Background::start(
        [task = std::move(task), done = std::move(done), guard = QPointer<QObject>(context),
         stop]() mutable {
            auto result =
                std::make_shared<BackgroundResult<T>>(detail::resultOf<T>(*task, stop.get_token()));
            task.reset();
            MainThread::post(
                [result = std::move(result), done = std::move(done), guard = std::move(guard)] {
                    if (guard)
                        (*done)(std::move(*result));
                });
        },
        stop);
    return stop;
}

} // namespace tessary
