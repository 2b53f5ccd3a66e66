#pragma once

#include "base/threads/ThreadName.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <stop_token>
#include <thread>

namespace tessary {

/// Asks for a stop once its time is over: bounds work whose single waits are bounded, but not their
/// number.
class Deadline {
public:
    explicit Deadline(std::chrono::milliseconds limit)
        : watch_([this, limit](const std::stop_token& ended) {
              nameCurrentThread("tessary-limit");
              std::mutex mutex;
              std::unique_lock lock(mutex);
              std::condition_variable_any().wait_for(lock, ended, limit, [] { return false; });
              if (!ended.stop_requested())
                  stop_.request_stop();
          }) {}

    [[nodiscard]] std::stop_token token() const {
        return stop_.get_token();
    }

private:
    std::stop_source stop_;
    std::jthread watch_; ///< last: it uses stop_
};

} // namespace tessary
