#pragma once

#include "base/text/ByteCount.h"
#include "sync/pair/SyncPair.h"
#include "sync/plan/SyncReport.h"

#include <functional>
#include <optional>

namespace tessary {

/// What a run tells while it works, on its thread.
struct SyncRunEvents {
    /// At each stage, and for each piece of a file.
    std::function<void(const SyncProgress&)> progress;
    /// What was said beforehand of any such question; no value: the user is asked. May be empty.
    std::function<std::optional<SyncAnswer>(const SyncQuestion&)> answer;
    /// Blocks until the user has answered. No function: SyncAnswer::stop().
    std::function<SyncAnswer(const SyncQuestion&)> ask;
};

/// A run's counters, and where they go.
class SyncRunProgress {
public:
    explicit SyncRunProgress(const SyncRunEvents& events) : events_(events) {}

    void enter(SyncStage stage) {
        counters_.stage = stage;
        show();
    }
    void setTotals(qint64 files, qint64 bytes) {
        counters_.totalFiles = files;
        counters_.totalBytes = bytes;
    }
    void beginFile(SyncStage stage, const QString& path) {
        counters_.currentFileName = path;
        counters_.currentFileBytes = 0;
        enter(stage);
    }
    void setBytes(qint64 done) {
        counters_.currentFileBytes = done;
        show();
    }
    void endFile(qint64 bytes) {
        ++counters_.completedFiles;
        counters_.completedBytes = addByteCounts(counters_.completedBytes, bytes);
        counters_.currentFileBytes = 0;
        show();
    }

private:
    void show() {
        if (events_.progress)
            events_.progress(counters_);
    }

    const SyncRunEvents& events_;
    SyncProgress counters_;
};

} // namespace tessary
