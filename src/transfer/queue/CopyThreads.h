#pragma once

#include "transfer/copy/TreeCopy.h"

#include <chrono>
#include <functional>
#include <memory>

namespace tessary {

/// Runs each copy on a thread of its own ("tessary-copy"). Thread-safe; every call returns at
/// once, but for stop().
class CopyThreads {
public:
    /// Called on the copy's thread; they must not throw.
    struct Callbacks {
        CopyProgress onProgress;
        std::function<void(CopyOutcome)> onEnd;
    };

    CopyThreads();
    /// stop() with a limit of ten seconds.
    ~CopyThreads();
    CopyThreads(const CopyThreads&) = delete;
    CopyThreads& operator=(const CopyThreads&) = delete;

    /// What asks the copy to stop. After stop() nothing is started.
    std::stop_source start(TreeCopyRequest request, Callbacks callbacks);
    /// Asks every copy to stop and waits for them. False when one did not end within `limit`: it
    /// is left behind and uses nothing of this object.
    bool stop(std::chrono::milliseconds limit);

private:
    struct State;
    const std::shared_ptr<State> state_;
};

} // namespace tessary
