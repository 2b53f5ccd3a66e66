#pragma once

#include "tour/TourStage.h"

namespace tessary {

/// Transfers under way and finished.
void tourTransfers(TourStage& stage);
/// A copy that lost its phone, what is offered once that is back, and what is remembered of it.
void tourBrokenCopy(TourStage& stage);
/// The questions before a copy.
void tourCopyQuestions(TourStage& stage);
/// What goes wrong: a full storage, another program that holds the phone.
void tourFailures(TourStage& stage);

} // namespace tessary
