#pragma once

#include "tour/TourStage.h"

namespace tessary {

/// Each page of the settings.
void tourSettings(TourStage& stage);
/// The phones on the network.
void tourWireless(TourStage& stage);
/// German and Japanese.
void tourLanguages(TourStage& stage);
/// A desktop with dark colours.
void tourDark(TourStage& stage);

} // namespace tessary
