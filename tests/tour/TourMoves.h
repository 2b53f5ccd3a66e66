#pragma once

#include "tour/TourStage.h"

namespace tessary {

/// What is done with entries: their menu, a folder that is asked for, larger and hidden ones.
void tourMoves(TourStage& stage);
/// Names that are looked for in all that lies below a folder.
void tourSearch(TourStage& stage);
/// The window where there is little room.
void tourSmallWindow(TourStage& stage);

} // namespace tessary
