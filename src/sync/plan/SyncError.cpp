#include "sync/plan/SyncError.h"

#include <array>

namespace tessary {

namespace {

constexpr std::array names{
    "changedMeanwhile", "kindsDiffer",   "sameNames",        "aboveUnknown",    "notListed",
    "changedAtTarget",  "undecided",     "sizeUnknown",      "twice",           "tooDeep",
    "stopped",          "folderMissing", "sourceIsNoFolder", "recordNotStored",
};
static_assert(names.size() == static_cast<std::size_t>(SyncError::recordNotStored) + 1);

} // namespace

const char* errorName(SyncError error) {
    return names[static_cast<std::size_t>(error)];
}

} // namespace tessary
