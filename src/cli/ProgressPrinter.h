#pragma once

#include "core/TransferProgress.h"

#include <QString>

#include <chrono>
#include <cstdio>
#include <optional>

namespace tessary {

/// How fast a transfer runs, smoothed over the last seconds, and how long the rest will take.
class TransferSpeed {
public:
    using Clock = std::chrono::steady_clock;

    /// Takes note of the bytes that are done at a moment; moments never go back.
    void update(qint64 doneBytes, Clock::time_point now);
    /// Bytes a second; 0 until there is something to go by.
    [[nodiscard]] double bytesPerSecond() const {
        return bytesPerSecond_;
    }
    /// No value without a speed.
    [[nodiscard]] std::optional<std::chrono::seconds> timeLeft(qint64 remainingBytes) const;

private:
    Clock::time_point last_;
    qint64 lastBytes_ = 0;
    double bytesPerSecond_ = 0;
    bool hasStarted_ = false;
};

/// "12 s", "3:05 min" or "1:02:03 h".
[[nodiscard]] QString formatDuration(std::chrono::seconds duration);

/// Shows a transfer on one line of a terminal: share, bytes, speed, time left. Writes nothing when
/// the stream is no terminal. Used by one thread.
class ProgressPrinter {
public:
    explicit ProgressPrinter(std::FILE* stream);
    /// Removes the line.
    ~ProgressPrinter();
    ProgressPrinter(const ProgressPrinter&) = delete;
    ProgressPrinter& operator=(const ProgressPrinter&) = delete;

    void show(const TransferProgress& progress);
    void show(qint64 done, qint64 total);

private:
    void write(const QString& line);

    std::FILE* stream_;
    const bool isTerminal_;
    bool hasLine_ = false;
    TransferSpeed::Clock::time_point lastShown_;
    TransferSpeed speed_;
};

} // namespace tessary
