#include "cli/ProgressPrinter.h"

#include "core/ByteFormat.h"

#include <unistd.h>

#include <algorithm>
#include <cmath>

namespace tessary {

namespace {

using namespace std::chrono_literals;

constexpr auto shownEvery = 100ms;
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

ProgressPrinter::ProgressPrinter(std::FILE* stream)
    : stream_(stream), isTerminal_(isatty(fileno(stream)) != 0) {}

ProgressPrinter::~ProgressPrinter() {
    if (hasLine_)
        std::fputs("\r\033[K", stream_);
}

void ProgressPrinter::show(qint64 done, qint64 total) {
    TransferProgress progress;
    progress.totalFiles = 1;
    progress.totalBytes = total;
    progress.currentFileBytes = done;
    show(progress);
}

void ProgressPrinter::show(const TransferProgress& progress) {
    if (!isTerminal_)
        return;
    const auto now = TransferSpeed::Clock::now();
    const qint64 done = progress.completedBytes + progress.currentFileBytes;
    speed_.update(done, now);
    const bool isDone = done >= progress.totalBytes;
    if (hasLine_ && !isDone && now - lastShown_ < shownEvery)
        return;
    lastShown_ = now;

    const qint64 percent =
        progress.totalBytes > 0
            ? static_cast<qint64>(100.0 * static_cast<double>(std::min(done, progress.totalBytes)) /
                                  static_cast<double>(progress.totalBytes))
            : 0;
    QString line = QStringLiteral("%1 %  %2").arg(percent, 3).arg(progress.bytesDescription());
    if (progress.totalFiles > 1)
        line += QStringLiteral("  ") + progress.fileCountDescription();
    if (speed_.bytesPerSecond() >= 1)
        line +=
            QStringLiteral("  %1/s").arg(formatBytes(static_cast<qint64>(speed_.bytesPerSecond())));
    if (isDone && progress.totalBytes > 0)
        line += QStringLiteral("  finishing");
    else if (const auto left = speed_.timeLeft(progress.totalBytes - done))
        line += QStringLiteral("  %1 left").arg(formatDuration(*left));
    write(line);
}

void ProgressPrinter::write(const QString& line) {
    hasLine_ = true;
    std::fprintf(stream_, "\r\033[K%s", qUtf8Printable(line));
    std::fflush(stream_);
}

} // namespace tessary
