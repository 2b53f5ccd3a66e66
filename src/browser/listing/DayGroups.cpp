#include "browser/listing/DayGroups.h"

#include "browser/listing/FileRows.h"

namespace tessary {

std::vector<DayGroup> dayGroupsOf(const FileRows& rows) {
    std::vector<DayGroup> groups;
    for (int row = 0; row < rows.count(); ++row) {
        const qint64 day = rows.day(row);
        const bool isFolder = rows.isFolder(row);
        if (row > 0 && rows.day(row - 1) == day && rows.isFolder(row - 1) == isFolder)
            continue;
        if (isFolder)
            groups.push_back({row, DayGroup::Kind::folders});
        else if (day == FileListing::noDay)
            groups.push_back({row, DayGroup::Kind::undated});
        else
            groups.push_back({row, DayGroup::Kind::day, QDate::fromJulianDay(day)});
    }
    return groups;
}

} // namespace tessary
