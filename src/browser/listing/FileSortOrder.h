#pragma once

#include <QtGlobal>

#include <vector>

namespace tessary {

/// What a listing can be sorted by; the columns of the list, in this order.
enum class FileField { name, size, modified, kind };

struct FileComparator {
    FileField field = FileField::name;
    bool descending = false;

    bool operator==(const FileComparator&) const = default;
};

/// The first comparator that finds two entries unequal decides. Folders come first whatever it
/// is, and entries that are equal by all of it are in order of name.
using FileSortOrder = std::vector<FileComparator>;

} // namespace tessary
