#pragma once

#include "sync/plan/SyncPlan.h"

#include <QString>

namespace tessary {

/// Why a run looks like a mistake, in the language of the interface; empty when it does not.
[[nodiscard]] QString guardText(const SyncGuard& guard);

} // namespace tessary
