#pragma once

#include "sync/plan/SyncPlanner.h"
#include "sync/plan/SyncReport.h"

#include <optional>

namespace tessary {

/// What the user has said of one run, beforehand or asked by it. Used by one thread.
class SyncConsent {
public:
    explicit SyncConsent(SyncDecisions decisions) : decisions_(std::move(decisions)) {}

    [[nodiscard]] const SyncDecisions& decisions() const {
        return decisions_;
    }
    /// Whether he wants the computer's folder made again.
    [[nodiscard]] bool mayMakeFolder() const {
        return mayMakeFolder_;
    }
    /// What he was not asked yet; no value where all is decided.
    [[nodiscard]] std::optional<SyncQuestion> questionOf(const SyncPlanner& planner) const;
    /// Takes his answer down. SyncError::stopped or ::folderMissing where it ends the run.
    void heed(const SyncQuestion& question, const SyncAnswer& answer);

private:
    SyncDecisions decisions_;
    bool mayMakeFolder_ = false;
};

} // namespace tessary
