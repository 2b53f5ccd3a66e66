#pragma once

#include <QDate>

#include <optional>
#include <vector>

namespace tessary {

class FileRows;

/// Neighbouring rows that belong together in a folder that is grouped by day.
struct DayGroup {
    enum class Kind { folders, day, undated };

    int firstRow = 0;
    Kind kind = Kind::day;
    QDate day{}; ///< of Kind::day

    bool operator==(const DayGroup&) const = default;
};

/// The groups of all rows, in their order.
[[nodiscard]] std::vector<DayGroup> dayGroupsOf(const FileRows& rows);

} // namespace tessary
