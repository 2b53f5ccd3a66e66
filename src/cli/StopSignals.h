#pragma once

#include <stop_token>
#include <thread>

namespace tessary {

/// Turns the first SIGINT or SIGTERM of this process into a stop request; a second one ends the
/// process. Make it before any other thread: threads inherit that they do not take these signals.
class StopSignals {
public:
    StopSignals();
    ~StopSignals();
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

    [[nodiscard]] std::stop_token token() const {
        return stop_.get_token();
    }

private:
    std::stop_source stop_;
    std::jthread listener_;
};

} // namespace tessary
