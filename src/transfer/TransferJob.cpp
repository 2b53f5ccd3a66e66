#include "transfer/TransferJob.h"

#include "base/text/Printable.h"

#include <QStringList>

#include <algorithm>
#include <array>

namespace tessary {

namespace {

constexpr std::array typeTexts{QLatin1StringView("Upload"), QLatin1StringView("Download")};
constexpr std::array statusTexts{QLatin1StringView("Queued"), QLatin1StringView("In Progress"),
                                 QLatin1StringView("Completed"), QLatin1StringView("Failed"),
                                 QLatin1StringView("Cancelled")};

constexpr std::size_t namedSkips = 3;

} // namespace

bool TransferJob::isFinished() const {
    return status != TransferStatus::queued && status != TransferStatus::inProgress;
}

qint64 TransferJob::doneBytes() const {
    // Either counter is what a device claims: they are not added up beyond the total.
    const qint64 total = std::max<qint64>(progress.totalBytes, 0);
    const qint64 finished = std::clamp<qint64>(progress.completedBytes, 0, total);
    return finished + std::clamp<qint64>(progress.currentFileBytes, 0, total - finished);
}

double TransferJob::fractionDone() const {
    if (status == TransferStatus::completed)
        return 1;
    if (progress.totalBytes > 0)
        return static_cast<double>(doneBytes()) / static_cast<double>(progress.totalBytes);
    if (progress.totalFiles > 0)
        return std::clamp(static_cast<double>(progress.completedFiles) /
                              static_cast<double>(progress.totalFiles),
                          0.0, 1.0);
    return 0;
}

QString rawValue(TransferJob::TransferType type) {
    return typeTexts[static_cast<std::size_t>(type)];
}

QString rawValue(TransferJob::TransferStatus status) {
    return statusTexts[static_cast<std::size_t>(status)];
}

QString skippedDescription(const std::vector<SkippedItem>& skipped, qint64 copiedFiles) {
    if (skipped.empty())
        return {};
    const auto count = static_cast<qint64>(skipped.size());
    QStringList named;
    for (std::size_t i = 0; i < std::min(skipped.size(), namedSkips); ++i)
        named << QStringLiteral("%1 (%2)").arg(printable(skipped[i].path),
                                               printable(skipped[i].reason));
    QString text = QStringLiteral("%1 of %2 files %3 not copied: %4")
                       .arg(count)
                       .arg(copiedFiles + count)
                       .arg(count == 1 ? QLatin1StringView("was") : QLatin1StringView("were"))
                       .arg(named.join(QLatin1StringView(", ")));
    if (skipped.size() > namedSkips)
        text += QStringLiteral(" and %1 more").arg(skipped.size() - namedSkips);
    return text;
}

IncompleteTransferError::IncompleteTransferError(TransferOutcome outcome)
    : outcome_(std::move(outcome)),
      utf8_(skippedDescription(outcome_.skipped, outcome_.progress.completedFiles).toUtf8()) {}

} // namespace tessary
