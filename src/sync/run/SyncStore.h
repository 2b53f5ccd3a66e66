#pragma once

#include "sync/plan/SyncManifest.h"
#include "sync/run/SyncSide.h"

#include <optional>

namespace tessary {

/// The manifest in a pair's folder; no value when there is none that can be read. Throws when the
/// phone is lost, and CancellationError.
[[nodiscard]] std::optional<SyncManifest> loadManifest(SyncSide& side, const Call& call);

/// Replaces it, whole or not at all where the side can rename.
void saveManifest(SyncSide& side, const SyncManifest& manifest, const Call& call);

} // namespace tessary
