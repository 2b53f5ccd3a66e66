#pragma once

#include "tour/TourStage.h"

namespace tessary {

/// The storage, a folder as list and grid, and the filter.
void tourListings(TourStage& stage);
/// A path that is typed, and one that leads nowhere.
void tourTypedPaths(TourStage& stage);
/// A picture, a text, and what cannot be shown.
void tourPreviews(TourStage& stage);
/// Of one entry and of several.
void tourProperties(TourStage& stage);
/// A new folder, and the question before a deletion.
void tourEdits(TourStage& stage);

} // namespace tessary
