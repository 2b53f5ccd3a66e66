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
    const auto found = std::find_if(steps_.rbegin(), steps_.rend(), [&](const UndoStep& step) {
        return step.identity == identity;
    });
    return found == steps_.rend() ? std::nullopt : std::optional(*found);
}

std::optional<UndoStep> UndoHistory::take(const QString& identity) {
    auto step = newestOf(identity);
    if (step)
        steps_.erase(
            std::prev(std::find_if(steps_.rbegin(), steps_.rend(), [&](const UndoStep& one) {
                          return one.identity == identity;
                      }).base()));
    return step;
}

} // namespace tessary
