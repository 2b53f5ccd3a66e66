#pragma once

#include "transfer/copy/TreeCopy.h"

#include <QHash>

namespace tessary {

/// One of the things that are to be copied.
struct CheckedItem {
    CopyItem item;
    std::optional<FileItem> existing; ///< what has its name
    qint64 bytes = 0;                 ///< to be moved
};

using CopyAnswers = QHash<QString, ClashAnswer>; ///< by FileItem::id(); keepBoth for all else

/// What a copy will meet, found out before anything is moved.
struct CopyCheck {
    std::vector<CheckedItem> items; ///< in their order
    /// Bytes at the target less what is on its way there; no value when nobody knows.
    std::optional<qint64> freeBytes;
    /// Not everything could be counted: the bytes are the least that will be moved.
    bool isPartial = false;

    /// What the copy takes for itself at its worst moment: an older file goes when the new one is
    /// there.
    [[nodiscard]] qint64 neededBytes(const CopyAnswers& answers) const;
};

struct CopyCheckFacts {
    qint64 bytesOnTheWay = 0; ///< of other copies, to the same target
    /// No folder of the source holds more; without a value folders are counted where that matters.
    std::optional<qint64> mostBytes{};
};

/// Blocking; throws CancellationError alone. Once `stopCounting` asks for it, folders that have not
/// been counted are left out. What cannot be asked counts as empty or unknown: the copy says why.
[[nodiscard]] CopyCheck checkCopy(const TreeCopyRequest& request, const CopyCheckFacts& facts,
                                  const std::stop_token& stopCounting, const std::stop_token& stop);

/// The answers for what was asked about, and one for what lies in folders.
[[nodiscard]] ClashPolicy policyFor(CopyAnswers answers, ClashAnswer below);

} // namespace tessary
