#pragma once

#include "sync/plan/SyncReport.h"

#include <QString>

namespace tessary {

// What the sync tells, in the language of the interface. For the main thread.

/// What a run of a pair does, in one plain sentence.
[[nodiscard]] QString sentenceOf(const SyncPair& pair);
/// What a run is at: "Scanning folders…". Empty where there is nothing to tell.
[[nodiscard]] QString stageText(SyncStage stage);

enum class SyncTense { planned, done };

/// "Copy to the phone", and once it is done "Copied to the phone".
[[nodiscard]] QString deedText(SyncDeed deed, SyncTense tense);
/// The icon of a deed.
[[nodiscard]] const char* deedIcon(SyncDeed deed);
/// How often each thing is done: "Copy to the phone: 3  ·  Delete on the phone: 1".
[[nodiscard]] QString countsText(const std::map<SyncDeed, qint64>& counts, SyncTense tense);
/// Why a run looks like a mistake; empty when it does not.
[[nodiscard]] QString guardText(const SyncGuard& guard);
/// How a run went, in one line.
[[nodiscard]] QString reportText(const SyncReport& report);
/// That a run failed.
[[nodiscard]] QString notFinishedText(const SyncPair& pair);
/// That a run failed, or left files as they are.
[[nodiscard]] QString troubleText(const SyncPair& pair, const SyncReport& report);
/// When a run ended, and how it went.
[[nodiscard]] QString datedReportText(const SyncReport& report);

} // namespace tessary
