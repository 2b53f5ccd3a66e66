#pragma once

#include "sync/plan/SyncManifest.h"
#include "sync/plan/SyncTree.h"

#include <chrono>

namespace tessary {

/// By how many whole hours every file's date has moved since the record was written; zero when they
/// have not, or not all by the same. A phone or a card in another time zone shows that: it is no
/// edit. `isDevice` says which of a record's dates count.
[[nodiscard]] std::chrono::seconds dateShift(const SyncTree& tree, const SyncFiles& record,
                                             bool isDevice);

} // namespace tessary
