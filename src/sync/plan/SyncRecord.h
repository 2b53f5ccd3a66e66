#pragma once

#include "sync/pair/SyncPair.h"
#include "sync/plan/SyncManifest.h"

#include <QDateTime>
#include <QString>

#include <optional>

namespace tessary {

/// What is remembered of a pair's last run, as far as it may be believed.
struct SyncRecord {
    SyncFiles files;
    /// Both sides hold it from the same run. Only then can a file that is not there have been
    /// deleted, and only then is any content known.
    bool isShared = false;
    qint64 runNumber = 0;
    QDateTime startedAt;          ///< when the run that wrote it began
    SyncFiles before{};           ///< of files that the older of two records has otherwise, its say
    bool isOlderOnDevice = false; ///< where that one lies
};

/// The key of a pair's entry in manifests: the same for the same computer, device, app or storage
/// and folders, another one for any other. A UUID in upper case.
[[nodiscard]] QString syncRecordKey(const QString& hostID, const SyncPair& pair);

/// The record of a pair out of the manifests of both sides. No value when a side has none: its disk
/// or card may be another one, and nothing that the other side remembers is about it. Of two runs
/// the newer one's counts.
[[nodiscard]] std::optional<SyncRecord> syncRecord(const std::optional<SyncManifest>& local,
                                                   const std::optional<SyncManifest>& device,
                                                   const QString& hostID, const SyncPair& pair);

/// Files that either manifest knows of the pair, which is worth a question when a side is empty; no
/// value when neither has heard of it.
[[nodiscard]] std::optional<qint64> filesOnceSynced(const std::optional<SyncManifest>& local,
                                                    const std::optional<SyncManifest>& device,
                                                    const QString& hostID, const SyncPair& pair);

} // namespace tessary
