#pragma once

#include "base/local/LocalTree.h"
#include "phone/TransferProgress.h"

#include <functional>
#include <vector>

namespace tessary {

/// Where a folder transfer stands; called after each piece, on one thread at a time that need not
/// be the caller's.
using TransferProgressCallback = std::function<void(const TransferProgress&)>;

/// Bytes done and in all of one file; called in the same way.
using FileProgressCallback = std::function<void(qint64 done, qint64 total)>;

/// How a folder transfer ended. What had to be left out is named; everything else was copied.
struct TransferOutcome {
    TransferProgress progress;
    std::vector<SkippedItem> skipped;

    [[nodiscard]] bool isComplete() const {
        return skipped.empty();
    }
};

} // namespace tessary
