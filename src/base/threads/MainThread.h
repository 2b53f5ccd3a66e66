#pragma once

#include <functional>

namespace tessary {

/// The thread that made the QCoreApplication, and the way to it from every other thread.
class MainThread {
public:
    /// Whether the caller is on it. False without an application.
    [[nodiscard]] static bool isCurrent();

    /// Ends the program when the caller is not on the main thread.
    static void assertCurrent();

    /// Has `work` called by the main thread's event loop, soon and in the order of posting; never
    /// within the call itself. Thread-safe. Work that throws ends the program. What is posted
    /// after the event loop has ended is not called.
    static void post(std::function<void()> work);
};

} // namespace tessary
