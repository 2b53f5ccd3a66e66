#pragma once

#include "phone/TransferProgress.h"

#include <chrono>
#include <functional>

namespace tessary {

/// Where a copy stands; called on the thread of the copy.
using CopyProgress = std::function<void(const TransferProgress&)>;

/// Hands progress on about 15 times a second, whatever the number of pieces and files.
class ProgressPacer {
public:
    static constexpr std::chrono::milliseconds interval{66};

    explicit ProgressPacer(CopyProgress receiver) : receiver_(std::move(receiver)) {}

    void show(const TransferProgress& progress) {
        const auto now = std::chrono::steady_clock::now();
        if (now - last_ < interval)
            return;
        last_ = now;
        showNow(progress);
    }
    /// Without waiting for its time: at the beginning and at the end.
    void showNow(const TransferProgress& progress) {
        if (receiver_)
            receiver_(progress);
    }

private:
    const CopyProgress receiver_;
    std::chrono::steady_clock::time_point last_;
};

} // namespace tessary
