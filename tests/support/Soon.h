#pragma once

#include <chrono>
#include <functional>
#include <thread>

namespace tessary {

/// What is done at once is done by then, also under a sanitizer on a busy machine. What it is told
/// from, by who uses it, takes several times as long.
inline constexpr std::chrono::seconds soon(10);

/// Waits until `holds`, and tells whether it came to be in time. No event loop turns meanwhile.
[[nodiscard]] inline bool comesTrue(const std::function<bool()>& holds,
                                    std::chrono::seconds limit = 4 * soon) {
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!holds()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return true;
}

} // namespace tessary
