#include "phones/VirtualRequestLog.h"

namespace tessary {

void VirtualRequestLog::add(VirtualRequest request) {
    const std::lock_guard lock(mutex_);
    ++counts_[request.operation];
    requests_.push_back(std::move(request));
    if (requests_.size() > limit)
        requests_.pop_front();
}

void VirtualRequestLog::clear() {
    const std::lock_guard lock(mutex_);
    requests_.clear();
    counts_.clear();
}

std::vector<VirtualRequest> VirtualRequestLog::requests() const {
    const std::lock_guard lock(mutex_);
    return {requests_.begin(), requests_.end()};
}

std::size_t VirtualRequestLog::count() const {
    const std::lock_guard lock(mutex_);
    std::size_t all = 0;
    for (const auto& [operation, count] : counts_)
        all += count;
    return all;
}

std::size_t VirtualRequestLog::count(std::uint16_t operation) const {
    const std::lock_guard lock(mutex_);
    const auto found = counts_.find(operation);
    return found == counts_.end() ? 0 : found->second;
}

} // namespace tessary
