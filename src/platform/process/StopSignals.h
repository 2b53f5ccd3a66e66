#pragma once

#include "base/local/FileHandle.h"

#include <chrono>
#include <stop_token>
#include <thread>

namespace tessary {

/// Turns the first SIGINT, SIGTERM or SIGHUP of this process into a stop request, upon which the
/// program ends as it does by itself. One that has not done so within `patience`, because a phone
/// hangs, or that a user interrupts once more, is ended here: what is unfinished (see Unfinished)
/// is removed before. A signal that was ignored when the program started (nohup) stays ignored.
/// There is one of these at a time.
class StopSignals {
public:
    static constexpr std::chrono::seconds defaultPatience{5};

    explicit StopSignals(std::chrono::milliseconds patience = defaultPatience);
    /// The signals do again what they did before.
    ~StopSignals();
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

    /// Requested on a thread of this class.
    [[nodiscard]] std::stop_token token() const {
        return stop_.get_token();
    }

private:
    void listen(std::chrono::milliseconds patience);

    std::stop_source stop_;
    FileHandle arrived_; ///< the numbers of the signals, a byte each; closed on the other side
    std::thread listener_;
};

} // namespace tessary
