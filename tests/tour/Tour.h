#pragma once

#include "tour/TourStage.h"

namespace tessary {

// The steps of the tour. Each leaves the window as the next may find it.

/// No phone, then the first one.
void tourWelcome(TourStage& stage);
/// The storage, a folder as list and grid, and the filter.
void tourListings(TourStage& stage);
/// A path that is typed, and one that leads nowhere.
void tourTypedPaths(TourStage& stage);
/// What is done with entries: their menu, a folder that is asked for, larger ones.
void tourMoves(TourStage& stage);
/// Names that are looked for in all that lies below a folder.
void tourSearch(TourStage& stage);
/// The window where there is little room.
void tourSmallWindow(TourStage& stage);
/// A folder of this computer beside the phone's, the columns' menu, and the help.
void tourPanes(TourStage& stage);
/// A picture, a text, and what cannot be shown.
void tourPreviews(TourStage& stage);
/// Of one entry and of several.
void tourProperties(TourStage& stage);
/// Each page of the settings.
void tourSettings(TourStage& stage);
/// The phones on the network.
void tourWireless(TourStage& stage);
/// German and Japanese.
void tourLanguages(TourStage& stage);
/// A desktop with dark colours.
void tourDark(TourStage& stage);
/// A new folder, and the question before a deletion.
void tourEdits(TourStage& stage);
/// What hands do without thinking: duplicating, taking back, dropping, dragging a frame, a second
/// window.
void tourHands(TourStage& stage);
/// Transfers under way and finished.
void tourTransfers(TourStage& stage);
/// The questions before a copy.
void tourCopyQuestions(TourStage& stage);
/// A pair of folders: made, previewed, run, asked about.
void tourSync(TourStage& stage);
/// What goes wrong: a full storage, another program that holds the phone.
void tourFailures(TourStage& stage);
/// A copy that lost its phone, what is offered once that is back, and what is remembered of it.
void tourBrokenCopy(TourStage& stage);
/// A locked phone, one that is unplugged, and a sync without it.
void tourLosses(TourStage& stage);
/// Trust, apps and documents of an iPhone.
void tourIPhone(TourStage& stage);

} // namespace tessary
