#pragma once

#include <QElapsedTimer>
#include <QTimer>

#include <algorithm>

namespace tessary {

/// Measures the longest time for which the main thread did not get round to its event loop. On the
/// main thread, from construction on; it never lets the loop rest.
class StallWatch {
public:
    StallWatch() {
        clock_.start();
        QObject::connect(&timer_, &QTimer::timeout,
                         [this] { longest_ = std::max(longest_, clock_.restart()); });
        timer_.start(0);
    }

    /// Leaves out the time since the loop was last round.
    void restart() {
        clock_.restart();
    }
    /// Milliseconds.
    [[nodiscard]] qint64 longest() const {
        return longest_;
    }

private:
    QElapsedTimer clock_;
    QTimer timer_;
    qint64 longest_ = 0;
};

} // namespace tessary
