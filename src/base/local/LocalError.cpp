#include "base/local/LocalError.h"

#include <array>

namespace tessary {

namespace {

constexpr std::array names{
    "cannotRead",     "cannotWrite",   "cannotMakeFolder",
    "cannotDelete",   "cannotRename",  "notFound",
    "notAFile",       "notAFolder",    "folderInTheWay",
    "fileInTheWay",   "taken",         "folderNotEmpty",
    "changed",        "nameNotUsable", "nameTooLong",
    "leavesFolder",   "link",          "full",
    "noRoomOnTheWay", "notPrivate",
};
static_assert(names.size() == static_cast<std::size_t>(LocalError::notPrivate) + 1);

} // namespace

const char* errorName(LocalError error) {
    return names[static_cast<std::size_t>(error)];
}

} // namespace tessary
