#include "transfer/copy/Spool.h"

#include <algorithm>

namespace tessary {

void Spool::append(ByteView bytes) {
    size_ += static_cast<qint64>(bytes.size());
    if (!isOnDisk() && size_ > mostInMemory_) {
        file_.emplace(QStringLiteral("spool"));
        file_->append(memory_);
        memory_ = {};
    }
    if (isOnDisk())
        file_->append(bytes);
    else
        memory_.insert(memory_.end(), bytes.begin(), bytes.end());
}

std::size_t Spool::read(std::span<std::byte> into) {
    std::size_t count = 0;
    if (isOnDisk()) {
        count = file_->readAt(taken_, into);
    } else {
        count = std::min(into.size(), static_cast<std::size_t>(size_ - taken_));
        std::copy_n(memory_.begin() + taken_, count, into.begin());
    }
    taken_ += static_cast<qint64>(count);
    return count;
}

} // namespace tessary
