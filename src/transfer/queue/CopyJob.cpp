#include "transfer/queue/CopyJob.h"

#include "phone/PhoneError.h"

#include <algorithm>

namespace tessary {

bool CopyJob::isFinished() const {
    return status != Status::queued && status != Status::paused && status != Status::running;
}

bool CopyJob::canGoOn() const {
    return status == Status::incomplete || status == Status::failed || status == Status::cancelled;
}

bool CopyJob::hasLostPhone() const {
    return status == Status::failed && error && endsEverything(*error);
}

qint64 CopyJob::doneBytes() const {
    // Either counter is what a phone claims: they are not added up beyond the total.
    const qint64 total = std::max<qint64>(progress.totalBytes, 0);
    const qint64 finished = std::clamp<qint64>(progress.completedBytes, 0, total);
    return finished + std::clamp<qint64>(progress.currentFileBytes, 0, total - finished);
}

double CopyJob::fractionDone() const {
    if (status == Status::done)
        return 1;
    if (progress.totalBytes > 0)
        return static_cast<double>(doneBytes()) / static_cast<double>(progress.totalBytes);
    if (progress.totalFiles > 0)
        return std::clamp(static_cast<double>(progress.completedFiles) /
                              static_cast<double>(progress.totalFiles),
                          0.0, 1.0);
    return 0;
}

} // namespace tessary
