#pragma once

#include "base/threads/Background.h"

#include <utility>

namespace tessary {

/// Lets go of what takes its time to end (a connection, a thread) off the main thread. `owner` is a
/// smart pointer; nothing happens for an empty one. Main thread.
template <typename Pointer>
void endInBackground(QObject* context, Pointer owner) {
    if (owner)
        runInBackground(
            context, [ended = std::move(owner)]() mutable { ended.reset(); },
            [](const BackgroundResult<void>&) {});
}

/// The same from any thread.
template <typename Pointer>
void endInBackground(Pointer owner) {
    if (owner)
        Background::start([ended = std::move(owner)]() mutable { ended.reset(); }, {});
}

} // namespace tessary
