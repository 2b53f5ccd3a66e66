#include "sync/pair/SyncPair.h"

#include "base/text/ByteCount.h"
#include "base/text/ByteFormat.h"

#include <algorithm>
#include <array>

namespace tessary {

namespace {

using View = QLatin1StringView;

constexpr std::array modeNames{View("Bi-directional"), View("To iPhone"), View("To Mac")};
constexpr std::array<QStringView, 15> stageNames{u"",
                                                 u"Connecting to device…",
                                                 u"Waiting for another sync…",
                                                 u"Scanning folders…",
                                                 u"Awaiting deletion confirmation…",
                                                 u"Analyzing files…",
                                                 u"Starting transfer…",
                                                 u"Uploading",
                                                 u"Downloading",
                                                 u"Moving",
                                                 u"Moving (already on destination)",
                                                 u"Deleting",
                                                 u"Up to date",
                                                 u"Completed",
                                                 u"Error"};
static_assert(stageNames.size() == static_cast<std::size_t>(SyncStage::failed) + 1);

template <typename Enum, typename Names>
std::optional<Enum> fromName(const Names& names, const QString& text) {
    for (std::size_t n = 0; n < names.size(); ++n)
        if (text == names[n])
            return static_cast<Enum>(n);
    return std::nullopt;
}

} // namespace

QString rawValue(SyncMode mode) {
    return modeNames[static_cast<std::size_t>(mode)];
}

std::optional<SyncMode> syncModeFromRawValue(const QString& text) {
    return fromName<SyncMode>(modeNames, text);
}

QString rawValue(SyncStage stage) {
    return stageNames[static_cast<std::size_t>(stage)].toString();
}

SyncStage syncStageFromRawValue(const QString& text) {
    return fromName<SyncStage>(stageNames, text).value_or(SyncStage::none);
}

QString SyncProgress::filesDescription() const {
    if (totalFiles < 1)
        return {};
    const qint64 done = std::min(totalFiles, completedFiles + (currentFileBytes > 0 ? 1 : 0));
    return QStringLiteral("%1/%2").arg(done).arg(totalFiles);
}

/// Stored counters may be anything: the sum stays within its range.
qint64 SyncProgress::bytesDone() const {
    return std::min(totalBytes, addByteCounts(completedBytes, currentFileBytes));
}

QString SyncProgress::bytesDescription() const {
    return formatBytes(bytesDone()) + QStringLiteral(" / ") + formatBytes(totalBytes);
}

int SyncProgress::percent() const {
    constexpr double whole = 100;
    if (totalBytes < 1)
        return 0;
    const double share = static_cast<double>(bytesDone()) / static_cast<double>(totalBytes);
    return static_cast<int>(std::clamp(share, 0.0, 1.0) * whole);
}

} // namespace tessary
