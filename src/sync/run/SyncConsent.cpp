#include "sync/run/SyncConsent.h"

#include "sync/plan/SyncError.h"

#include <algorithm>

namespace tessary {

std::optional<SyncQuestion> SyncConsent::questionOf(const SyncPlanner& planner) const {
    SyncQuestion question;
    question.guard = planner.guard();
    question.candidates = planner.deletionCandidates();
    const bool isWarned =
        question.guard.kind == SyncGuard::Kind::nothing || question.guard.kind == decisions_.guard;
    const bool isDecided =
        std::all_of(question.candidates.begin(), question.candidates.end(),
                    [this](const DeletionCandidate& candidate) {
                        return decisions_.deletions.contains(candidate.relativePath) ||
                               decisions_.kept.contains(candidate.relativePath);
                    });
    if (isWarned && isDecided)
        return std::nullopt;
    if (question.candidates.empty())
        question.kind = SyncQuestion::Kind::emptySide;
    return question;
}

void SyncConsent::heed(const SyncQuestion& question, const SyncAnswer& answer) {
    const bool isFolder = question.kind == SyncQuestion::Kind::missingLocalFolder;
    if (!answer.goesOn)
        throw isFolder ? Error(SyncError::folderMissing, {question.path})
                       : Error(SyncError::stopped);
    mayMakeFolder_ = mayMakeFolder_ || isFolder;
    decisions_.guard = question.guard.kind; // he has just been told
    if (isFolder)
        return;
    decisions_.deletions = answer.deletions;
    decisions_.kept.clear();
    for (const DeletionCandidate& candidate : question.candidates)
        if (!answer.deletions.contains(candidate.relativePath))
            decisions_.kept.insert(candidate.relativePath);
}

} // namespace tessary
