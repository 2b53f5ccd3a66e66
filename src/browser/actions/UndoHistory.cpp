#include "browser/actions/UndoHistory.h"

#include <algorithm>
#include <utility>

namespace tessary {

void UndoHistory::record(UndoStep step) {
    if (step.changes.empty() && step.kind != UndoStep::Kind::copy)
        return;
    if (steps_.size() == mostSteps)
        steps_.erase(steps_.begin());
    steps_.push_back(std::move(step));
}

void UndoHistory::endCopy(const CopyJob& job) {
    const auto step = std::ranges::find(steps_, job.id, &UndoStep::copy);
    if (step == steps_.end())
        return;
    step->changes.clear();
    for (const QString& path : job.made)
        step->changes.push_back({{}, path});
    step->made = job.entries;
    if (job.made.isEmpty())
        steps_.erase(step);
}

void UndoHistory::forget(const QString& identity) {
    std::erase_if(steps_, [&](const UndoStep& step) { return step.identity == identity; });
}

std::optional<UndoStep> UndoHistory::newestOf(const QString& identity) const {
    const auto found =
        std::ranges::find(steps_.rbegin(), steps_.rend(), identity, &UndoStep::identity);
    return found == steps_.rend() ? std::nullopt : std::optional(*found);
}

void UndoHistory::dropNewestOf(const QString& identity) {
    const auto found =
        std::ranges::find(steps_.rbegin(), steps_.rend(), identity, &UndoStep::identity);
    if (found != steps_.rend())
        steps_.erase(std::prev(found.base()));
}

} // namespace tessary
