#pragma once

#include "phone/NameRules.h"

#include <QtGlobal>

#include <chrono>
#include <optional>

namespace tessary {

/// What a kind of file system holds.
struct DiskTraits {
    NameRules names;
    qint64 largestFile = 0; ///< bytes; 0: no limit that matters
    std::chrono::milliseconds dateStep{1};
    /// A file's size reaches the disk no sooner than its bytes, whenever the power goes.
    bool writesSizeLast = false;

    bool operator==(const DiskTraits&) const = default;
};

/// What is known of a file system by the number that statfs() gives its type; no value for one
/// that has to be tried out. Pure.
[[nodiscard]] std::optional<DiskTraits> diskTraitsOf(quint64 type);
/// Whether an open file lies on a disk of this computer. Others (of networks, of programs) may keep
/// whoever reads from them waiting without end.
[[nodiscard]] bool isOnOwnDisk(int file);

/// What DiskTraits has of the disk of an open file; false where that is not known.
[[nodiscard]] bool writesSizeLast(int file);

/// What the file system of an open folder does with names: known by its type, else tried out in
/// that folder with files of `partOwner` (see PartName) that are gone again afterwards. Names are
/// taken for distinct where nothing can be written. Blocking; never fails.
[[nodiscard]] DiskTraits traitsOfDisk(int folder, const QString& partOwner);

/// The same for one folder of a disk: each may ignore case where its disk does not.
[[nodiscard]] DiskTraits traitsOfFolder(DiskTraits disk, int folder);

} // namespace tessary
