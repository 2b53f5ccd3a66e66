#pragma once

#include "base/local/LocalTree.h"
#include "phone/FileAccess.h"
#include "transfer/ErrorAdvice.h"

#include <exception>
#include <vector>

namespace tessary {

/// How the work of a transfer ended, in words.
struct TransferEnd {
    std::exception_ptr error; ///< null for success
    bool isCancelled = false;
    ErrorAdvice words;                ///< of a failure
    std::vector<SkippedItem> skipped; ///< what a folder transfer left out

    /// `files` may be null. Blocking: asks which programs hold the device.
    [[nodiscard]] static TransferEnd from(const std::exception_ptr& error, FileAccess* files);
};

} // namespace tessary
