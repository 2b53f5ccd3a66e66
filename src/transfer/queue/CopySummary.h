#pragma once

#include "transfer/queue/CopyJob.h"
#include "transfer/queue/TransferSpeed.h"

#include <chrono>
#include <optional>
#include <vector>

namespace tessary {

/// The queue as a whole: what is under way since it was last empty.
struct CopySummary {
    int queued = 0; ///< paused ones, too
    int running = 0;
    int finished = 0; ///< in the list, whatever their outcome
    qint64 doneBytes = 0;
    qint64 totalBytes = 0;
    double bytesPerSecond = 0;
    std::optional<std::chrono::seconds> timeLeft;

    [[nodiscard]] bool isIdle() const {
        return queued + running == 0;
    }
    /// Between 0 and 1, by bytes; no value while nothing is under way.
    [[nodiscard]] std::optional<double> fractionDone() const;
    bool operator==(const CopySummary&) const = default;
};

/// Adds up the jobs of a queue, those that have ended since it was last empty included, and how
/// fast they run together. Used by one thread.
class CopyTotals {
public:
    /// A first job is queued after all had ended.
    void beginAnew();
    /// A job has come to an end, however it did.
    void noteEnd(const CopyJob& job);
    /// A job goes on with what an earlier run of it has left.
    void noteFound() {
        speed_.skip();
    }
    /// How it stands at this moment.
    [[nodiscard]] CopySummary summaryOf(const std::vector<CopyJob>& jobs);

private:
    TransferSpeed speed_;
    qint64 finishedBytes_ = 0;
};

} // namespace tessary
