#include "transfer/queue/TransferSpeed.h"

#include <QtGlobal>

#include <algorithm>
#include <cmath>

namespace tessary {

namespace {

using namespace std::chrono_literals;

constexpr auto measuredEvery = 200ms;
/// The speed of this many seconds ago counts for about a third of what is shown.
constexpr double smoothingSeconds = 3.0;

} // namespace

void TransferSpeed::update(qint64 doneBytes, Clock::time_point now) {
    if (!hasStarted_ || doneBytes < lastBytes_) {
        hasStarted_ = true;
        last_ = now;
        lastBytes_ = doneBytes;
        return;
    }
    const std::chrono::duration<double> passed = now - last_;
    if (passed < measuredEvery)
        return;
    const double current = static_cast<double>(doneBytes - lastBytes_) / passed.count();
    const double weight = 1.0 - std::exp(-passed.count() / smoothingSeconds);
    bytesPerSecond_ =
        bytesPerSecond_ == 0 ? current : bytesPerSecond_ + weight * (current - bytesPerSecond_);
    last_ = now;
    lastBytes_ = doneBytes;
}

std::optional<std::chrono::seconds> TransferSpeed::timeLeft(qint64 remainingBytes) const {
    constexpr double longest = 100.0 * 3600;
    if (bytesPerSecond_ < 1)
        return std::nullopt;
    const double seconds = static_cast<double>(remainingBytes) / bytesPerSecond_;
    return std::chrono::seconds(static_cast<qint64>(std::ceil(std::min(seconds, longest))));
}

QString formatDuration(std::chrono::seconds duration) {
    const qint64 seconds = duration.count();
    if (seconds < 60)
        return QStringLiteral("%1 s").arg(seconds);
    const QChar zero = QLatin1Char('0');
    if (seconds < 3600)
        return QStringLiteral("%1:%2 min").arg(seconds / 60).arg(seconds % 60, 2, 10, zero);
    return QStringLiteral("%1:%2:%3 h")
        .arg(seconds / 3600)
        .arg(seconds / 60 % 60, 2, 10, zero)
        .arg(seconds % 60, 2, 10, zero);
}

} // namespace tessary
