#include "sync/plan/SyncDates.h"

#include <cstdlib>
#include <map>

namespace tessary {

namespace {

constexpr qint64 hour = 3600;     // seconds
constexpr qint64 tolerance = 2;   // seconds
constexpr qint64 widestZone = 26; // hours between any two places
/// Fewer files than this may have been touched by anybody.
constexpr int fewestFiles = 3;

} // namespace

std::chrono::seconds dateShift(const SyncTree& tree, const SyncFiles& record, bool isDevice) {
    std::map<qint64, int> shifts; // in whole hours
    int compared = 0;
    auto file = tree.files.begin();
    for (const auto& [path, entry] : record) {
        while (file != tree.files.end() && file->first < path)
            ++file;
        if (file == tree.files.end())
            break;
        if (file->first != path || file->second.size != entry.size)
            continue;
        const QDateTime& known = isDevice ? entry.deviceDate() : entry.modifiedDate;
        const qint64 seconds = known.secsTo(file->second.date);
        const qint64 hours = (seconds + (seconds < 0 ? -hour : hour) / 2) / hour;
        if (hours == 0 && std::abs(seconds) <= tolerance)
            return std::chrono::seconds(0);
        ++compared;
        if (std::abs(hours) <= widestZone && std::abs(seconds - hours * hour) <= tolerance)
            ++shifts[hours];
    }
    // A file that was edited meanwhile has a date of its own.
    for (const auto& [hours, count] : shifts)
        if (hours != 0 && count >= fewestFiles && 10 * count >= 9 * compared)
            return std::chrono::seconds(hours * hour);
    return std::chrono::seconds(0);
}

} // namespace tessary
