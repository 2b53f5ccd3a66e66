#pragma once

#include <QHash>
#include <QString>

#include <cstdint>
#include <utility>

namespace tessary {

/// What is remembered of a phone from one session to the next.
struct MTPPhoneMemory {
    /// Handles that folders had, by storage and path. Hints only: a phone may give others at any
    /// time.
    QHash<std::pair<std::uint32_t, QString>, std::uint32_t> folders;
    /// It answers GetObjectPropList, and tells the truth there.
    bool listsProperties = false;
    /// What a size of 32 bits is worth: some phones leave out what does not fit.
    enum class Sizes { unproven, whole, cut };
    Sizes sizes = Sizes::unproven;
    /// It takes edits in place, and dates, as far as is known.
    bool editsObjects = true;
    bool setsDates = true;
};

} // namespace tessary
