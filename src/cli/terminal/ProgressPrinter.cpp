#include "cli/terminal/ProgressPrinter.h"

#include "base/text/ByteFormat.h"

#include <unistd.h>

#include <algorithm>
#include <utility>

namespace tessary {

namespace {

using namespace std::chrono_literals;

constexpr auto shownEvery = 100ms;

} // namespace

ProgressPrinter::ProgressPrinter(std::FILE* stream)
    : stream_(stream), isTerminal_(isatty(fileno(stream)) != 0) {}

ProgressPrinter::~ProgressPrinter() {
    if (hasLine_)
        std::fputs("\r\033[K", stream_);
}

void ProgressPrinter::show(const TransferProgress& progress) {
    if (!isTerminal_)
        return;
    const auto now = TransferSpeed::Clock::now();
    const qint64 done = progress.bytesDone();
    if (done > 0 && !std::exchange(hasBytes_, true))
        speed_.skip(); // the first ones may be those of an earlier run
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
    hasLine_ = true;
    std::fprintf(stream_, "\r\033[K%s", qUtf8Printable(line));
    std::fflush(stream_);
}

} // namespace tessary
