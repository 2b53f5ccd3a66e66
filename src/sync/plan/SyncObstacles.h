#pragma once

#include "phone/NameRules.h"
#include "sync/plan/SyncManifest.h"
#include "sync/plan/SyncTree.h"

#include <QSet>
#include <QString>

#include <memory>
#include <set>

namespace tessary {

/// Tells which paths cannot be synced because of what stands beside or above them. Quick when asked
/// for each path in ascending order.
class SyncObstacles {
public:
    SyncObstacles(const SyncTree& local, const SyncTree& device, const SyncFiles& record);

    /// Why nothing may be done with a path; null when nothing is in its way.
    [[nodiscard]] std::shared_ptr<const Error> reasonFor(const QString& path, bool isLocalFile,
                                                         bool isDeviceFile);

private:
    [[nodiscard]] std::shared_ptr<const Error> reasonAbove(const QString& folder) const;

    const SyncTree& local_;
    const SyncTree& device_;
    const SyncFiles& record_;
    std::set<QString> kindsDiffer_; ///< a file on one side and a folder on the other
    /// Folders in which something could not be read whose name may be any.
    std::set<QString> localGaps_;
    std::set<QString> deviceGaps_;
    QString folder_;                            ///< that was asked about last; the root at first
    std::shared_ptr<const Error> folderReason_; ///< for everything in it
};

/// The files and folders of both sides whose names a side takes for one though they differ, because
/// it ignores case or Unicode form. Names that such a side holds next to each other do not clash.
[[nodiscard]] QSet<QString> clashingPaths(const SyncTree& local, const SyncTree& device,
                                          const NameRules& localNames,
                                          const NameRules& deviceNames);

/// Whether a path, or a folder above it, is in the set.
[[nodiscard]] bool isUnderAny(const QString& path, const QSet<QString>& set);

} // namespace tessary
