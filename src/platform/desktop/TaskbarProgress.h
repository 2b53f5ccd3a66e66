#pragma once

#include <optional>

namespace tessary {

/// The program's progress on its entry in the desktop's dock or taskbar (the Unity launcher's
/// protocol, which other docks read, too). Main thread; never blocks, and does nothing where no
/// session bus runs.
class TaskbarProgress {
public:
    TaskbarProgress() = default;
    /// Takes it away.
    ~TaskbarProgress();
    TaskbarProgress(const TaskbarProgress&) = delete;
    TaskbarProgress& operator=(const TaskbarProgress&) = delete;

    /// Between 0 and 1, shown in whole percents; no value: nothing is under way.
    void show(std::optional<double> fraction);

private:
    std::optional<int> shown_; ///< percents
};

} // namespace tessary
