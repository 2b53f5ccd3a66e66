#pragma once

#include "base/threads/MainThread.h"

#include <QObject>
#include <QPointer>

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>

namespace tessary {

/// What any one thread calls as often as it likes with a value that changes: `tell(value)` is
/// called on the main thread with the newest, of those that came meanwhile, and no more when
/// `context` is gone. At most one call is on its way at a time. Made on the main thread.
template <typename T, typename Tell>
[[nodiscard]] std::function<void(const T&)> tellLatest(QObject* context, Tell tell) {
    struct State {
        QPointer<QObject> context;
        Tell tell;
        std::mutex mutex;
        std::optional<T> newest; ///< guarded by mutex; there while a call is on its way
    };
    const auto state = std::shared_ptr<State>(new State{context, std::move(tell), {}, {}});
    return [state](const T& value) {
        {
            const std::scoped_lock lock(state->mutex);
            if (std::exchange(state->newest, value))
                return;
        }
        MainThread::post([state] {
            std::optional<T> newest;
            {
                const std::scoped_lock lock(state->mutex);
                newest.swap(state->newest);
            }
            // Who hears of it may do anything: without the lock.
            if (state->context)
                state->tell(*newest);
        });
    };
}

} // namespace tessary
