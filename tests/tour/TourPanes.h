#pragma once

#include "tour/TourStage.h"

namespace tessary {

/// A folder of this computer beside the phone's, the columns' menu, and the help.
void tourPanes(TourStage& stage);

} // namespace tessary
