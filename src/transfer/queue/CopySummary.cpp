#include "transfer/queue/CopySummary.h"

#include "base/text/ByteCount.h"

#include <algorithm>

namespace tessary {

std::optional<double> CopySummary::fractionDone() const {
    if (isIdle())
        return std::nullopt;
    return totalBytes > 0
               ? std::clamp(static_cast<double>(doneBytes) / static_cast<double>(totalBytes), 0.0,
                            1.0)
               : 0;
}

void CopyTotals::beginAnew() {
    speed_ = {};
    finishedBytes_ = 0;
}

void CopyTotals::noteEnd(const CopyJob& job) {
    finishedBytes_ = addByteCounts(finishedBytes_, job.doneBytes());
}

CopySummary CopyTotals::summaryOf(const std::vector<CopyJob>& jobs) {
    CopySummary summary;
    summary.doneBytes = finishedBytes_;
    summary.totalBytes = finishedBytes_;
    for (const CopyJob& job : jobs) {
        if (job.isFinished()) {
            ++summary.finished;
            continue;
        }
        ++(job.status == CopyJob::Status::running ? summary.running : summary.queued);
        summary.doneBytes = addByteCounts(summary.doneBytes, job.doneBytes());
        summary.totalBytes = addByteCounts(summary.totalBytes, job.progress.totalBytes);
    }
    if (summary.isIdle())
        return summary;
    speed_.update(summary.doneBytes, TransferSpeed::Clock::now());
    summary.bytesPerSecond = summary.running > 0 ? speed_.bytesPerSecond() : 0;
    if (summary.running > 0)
        summary.timeLeft = speed_.timeLeft(summary.totalBytes - summary.doneBytes);
    return summary;
}

} // namespace tessary
