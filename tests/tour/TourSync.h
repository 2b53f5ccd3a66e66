#pragma once

#include "tour/TourStage.h"

namespace tessary {

/// A pair of folders: made, previewed, run, asked about.
void tourSync(TourStage& stage);

} // namespace tessary
