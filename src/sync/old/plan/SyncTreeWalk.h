#pragma once

#include "base/local/LocalTree.h"
#include "phone/records/FileItem.h"
#include "sync/old/plan/SyncScan.h"

#include <functional>
#include <vector>

namespace tessary {

/// Lists a folder of a device, checked. What cannot be synced goes into `skipped`, whose paths
/// count by their last component.
using SyncListing =
    std::function<std::vector<FileItem>(const QString& path, std::vector<SkippedItem>& skipped)>;

/// One checked listing of a device folder as a scan: files, folders, and what cannot be synced.
/// `prefix` is put in front of the names.
void addListing(SyncScan& scan, const std::vector<FileItem>& items, const QString& prefix);

/// Everything below a device folder, one listing a folder. A tree that is deeper than any real one
/// fails with TessaryError::fileIOError.
[[nodiscard]] SyncScan scanTree(const QString& root, const SyncListing& list);

/// The first bytes of a local file that the sample check compares; no value when it cannot be read.
[[nodiscard]] std::optional<QByteArray> localSample(const QString& path);

/// Bytes of a file that the sample check compares.
inline constexpr int syncSampleSize = 4096;

} // namespace tessary
