#pragma once

#include <QtGlobal>

namespace tessary {

// Where a walk over folders of a phone ends, which may list a folder in itself, or two in each.

/// Levels below the folder where it began; paths of a real phone are far shorter.
inline constexpr int deepestFolder = 128;
/// Entries, seen in one walk. What has more is PhoneError::listingBroken.
inline constexpr qint64 mostWalkedEntries = 5'000'000;

} // namespace tessary
