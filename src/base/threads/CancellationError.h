#pragma once

#include <stdexcept>
#include <stop_token>

namespace tessary {

/// Thrown by an operation that ended because its stop token asked it to. Never shown as a failure.
class CancellationError : public std::runtime_error {
public:
    CancellationError() : std::runtime_error("The operation was cancelled.") {}
};

/// Throws CancellationError when `stop` has been asked to stop.
inline void throwIfStopped(const std::stop_token& stop) {
    if (stop.stop_requested())
        throw CancellationError();
}

} // namespace tessary
