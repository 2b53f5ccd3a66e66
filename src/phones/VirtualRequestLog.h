#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <mutex>
#include <vector>

namespace tessary {

/// One operation that was asked of a virtual phone.
struct VirtualRequest {
    std::uint16_t operation = 0; ///< raw code
    std::uint32_t transactionID = 0;
    std::vector<std::uint32_t> parameters;
    std::chrono::steady_clock::time_point time;
};

/// What was asked of a virtual phone. Thread-safe. Remembers the last 100,000 requests; the counts
/// are complete.
class VirtualRequestLog {
public:
    void add(VirtualRequest request);
    void clear();

    /// Oldest first.
    [[nodiscard]] std::vector<VirtualRequest> requests() const;
    [[nodiscard]] std::size_t count() const;
    [[nodiscard]] std::size_t count(std::uint16_t operation) const;

private:
    static constexpr std::size_t limit = 100'000;

    mutable std::mutex mutex_; ///< guards all below
    std::deque<VirtualRequest> requests_;
    std::map<std::uint16_t, std::size_t> counts_;
};

} // namespace tessary
