#pragma once

#include "phone/TransferProgress.h"
#include "transfer/queue/TransferSpeed.h"

#include <cstdio>

namespace tessary {

/// Shows a transfer on one line of a terminal: share, bytes, speed, time left. Writes nothing when
/// the stream is no terminal. Used by one thread.
class ProgressPrinter {
public:
    explicit ProgressPrinter(std::FILE* stream);
    /// Removes the line.
    ~ProgressPrinter();
    ProgressPrinter(const ProgressPrinter&) = delete;
    ProgressPrinter& operator=(const ProgressPrinter&) = delete;

    void show(const TransferProgress& progress);

private:
    std::FILE* stream_;
    const bool isTerminal_;
    bool hasLine_ = false;
    bool hasBytes_ = false; ///< some are done
    TransferSpeed::Clock::time_point lastShown_;
    TransferSpeed speed_;
};

} // namespace tessary
