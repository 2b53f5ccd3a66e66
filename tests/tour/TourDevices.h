#pragma once

#include "tour/TourStage.h"

namespace tessary {

/// No phone, then the first one.
void tourWelcome(TourStage& stage);
/// A locked phone, one that is unplugged, and a sync without it.
void tourLosses(TourStage& stage);
/// Trust, apps and documents of an iPhone.
void tourIPhone(TourStage& stage);

} // namespace tessary
