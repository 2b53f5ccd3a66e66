#pragma once

#include <cstddef>
#include <deque>
#include <map>
#include <mutex>
#include <type_traits>
#include <utility>
#include <vector>

namespace tessary {

/// What was asked of a virtual phone. `kind` is the field of a request by which they are counted.
/// Thread-safe. Remembers the last 100,000 requests; the counts are complete.
template <typename Request, auto kind>
class RequestLog {
public:
    using Kind = std::decay_t<decltype(std::declval<Request>().*kind)>;

    void add(Request request) {
        const std::scoped_lock lock(mutex_);
        ++counts_[request.*kind];
        requests_.push_back(std::move(request));
        if (requests_.size() > limit)
            requests_.pop_front();
    }
    void clear() {
        const std::scoped_lock lock(mutex_);
        requests_.clear();
        counts_.clear();
    }

    /// Oldest first.
    [[nodiscard]] std::vector<Request> requests() const {
        const std::scoped_lock lock(mutex_);
        return {requests_.begin(), requests_.end()};
    }
    [[nodiscard]] std::size_t count() const {
        const std::scoped_lock lock(mutex_);
        std::size_t all = 0;
        for (const auto& [one, count] : counts_)
            all += count;
        return all;
    }
    [[nodiscard]] std::size_t count(const Kind& wanted) const {
        const std::scoped_lock lock(mutex_);
        const auto found = counts_.find(wanted);
        return found == counts_.end() ? 0 : found->second;
    }

private:
    static constexpr std::size_t limit = 100'000;

    mutable std::mutex mutex_; ///< guards all below
    std::deque<Request> requests_;
    std::map<Kind, std::size_t> counts_;
};

} // namespace tessary
