#pragma once

#include "tour/TourStage.h"

namespace tessary {

/// What hands do without thinking: duplicating, moving by the clipboard, taking back, dropping,
/// dragging a frame, the buttons at a mouse's side, a second window.
void tourHands(TourStage& stage);

} // namespace tessary
