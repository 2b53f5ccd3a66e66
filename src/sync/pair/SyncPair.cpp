#include "sync/pair/SyncPair.h"

#include "base/text/ByteCount.h"
#include "base/text/ByteFormat.h"

#include <QLocale>

#include <algorithm>

namespace tessary {

namespace {

using View = QLatin1StringView;
using Location = DeletionCandidate::DeletionLocation;

constexpr std::array modeNames{View("Bi-directional"), View("To iPhone"), View("To Mac")};
constexpr std::array locationNames{View("Mac"), View("iPhone"), View("Android")};

template <typename Enum, std::size_t count>
std::optional<Enum> fromName(const std::array<View, count>& names, const QString& text) {
    for (std::size_t n = 0; n < count; ++n)
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

QString rawValue(Location location) {
    return locationNames[static_cast<std::size_t>(location)];
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

QString SyncProgress::progressPercentDescription() const {
    constexpr double hundred = 100;
    double fraction = 0;
    if (totalBytes >= 1)
        fraction = std::clamp(static_cast<double>(bytesDone()) / static_cast<double>(totalBytes),
                              0.0, 1.0);
    return QStringLiteral("%1%").arg(static_cast<int>(fraction * hundred));
}

bool SyncPair::isAndroid() const {
    return appBundleID == deviceStorage ||
           QLocale().toLower(deviceName).contains(QLocale().toLower(QStringLiteral("Android")));
}

} // namespace tessary
