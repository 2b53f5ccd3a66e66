#pragma once

#include <QString>

#include <chrono>
#include <optional>

namespace tessary {

/// How fast a transfer runs, smoothed over the last seconds, and how long the rest will take.
class TransferSpeed {
public:
    using Clock = std::chrono::steady_clock;

    /// Takes note of the bytes that are done at a moment; moments never go back.
    void update(qint64 doneBytes, Clock::time_point now);
    /// What is done by the next moment was there before, and says nothing of the speed.
    void skip() {
        hasStarted_ = false;
    }
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

} // namespace tessary
