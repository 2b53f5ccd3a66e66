#pragma once

#include "base/threads/Background.h"

#include <memory>
#include <utility>

namespace tessary {

/// Lets go of what takes its time to end (a connection, a thread) off the calling thread. `owner`
/// is a smart pointer; nothing happens for an empty one. From any thread.
template <typename Pointer>
void endInBackground(Pointer owner) {
    // Shared, since it travels through std::function, which copies.
    if (owner)
        Background::start(
            [ended = std::make_shared<Pointer>(std::move(owner))] { *ended = nullptr; }, {});
}

} // namespace tessary
