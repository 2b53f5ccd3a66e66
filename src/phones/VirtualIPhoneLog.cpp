#include "phones/VirtualIPhoneLog.h"

namespace tessary {

void VirtualIPhoneLog::add(VirtualIPhoneRequest request) {
    const std::lock_guard lock(mutex_);
    ++counts_[request.request];
    requests_.push_back(std::move(request));
    if (requests_.size() > limit)
        requests_.pop_front();
}

void VirtualIPhoneLog::clear() {
    const std::lock_guard lock(mutex_);
    requests_.clear();
    counts_.clear();
}

std::vector<VirtualIPhoneRequest> VirtualIPhoneLog::requests() const {
    const std::lock_guard lock(mutex_);
    return {requests_.begin(), requests_.end()};
}

std::size_t VirtualIPhoneLog::count(const QString& request) const {
    const std::lock_guard lock(mutex_);
    const auto found = counts_.find(request);
    return found == counts_.end() ? 0 : found->second;
}

} // namespace tessary
