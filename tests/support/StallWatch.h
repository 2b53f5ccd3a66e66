#pragma once

#include <QElapsedTimer>
#include <QFile>
#include <QTimer>

#include <algorithm>

namespace tessary {

/// Measures the longest time for which the main thread did not get round to its event loop, less
/// what it waited for a processor that others had. On the main thread, from construction on; it
/// never lets the loop rest.
class StallWatch {
public:
    StallWatch() {
        restart();
        QObject::connect(&timer_, &QTimer::timeout, [this] {
            const qint64 stall = clock_.elapsed() - (millisecondsQueued() - queuedBefore_);
            longest_ = std::max(longest_, stall);
            restart();
        });
        timer_.start(0);
    }

    /// Leaves out the time since the loop was last round.
    void restart() {
        clock_.start();
        queuedBefore_ = millisecondsQueued();
    }
    /// Milliseconds.
    [[nodiscard]] qint64 longest() const {
        return longest_;
    }

private:
    /// For how long the kernel let this thread wait though it had work; 0 where it does not tell.
    static qint64 millisecondsQueued() {
        QFile file(QStringLiteral("/proc/thread-self/schedstat")); // nanoseconds: ran, queued
        const auto figures =
            file.open(QIODevice::ReadOnly) ? file.readAll().split(' ') : QByteArrayList();
        return figures.value(1).toLongLong() / 1'000'000;
    }

    QElapsedTimer clock_;
    QTimer timer_;
    qint64 longest_ = 0;
    qint64 queuedBefore_ = 0;
};

} // namespace tessary
