#include "adb/protocol/ADBError.h"

#include <array>

namespace tessary {

namespace {

constexpr std::array names{
    "noKey",      "notSigned",     "noPublicKey",  "noServer",     "noADB",    "cannotPair",
    "notFound",   "severalPhones", "unauthorized", "notPermitted", "offline",  "held",
    "tooOld",     "refused",       "brokenOff",    "timedOut",     "nonsense", "syncFailed",
    "statFailed", "commandFailed", "nameNotText",  "pathTooLong",
};
static_assert(names.size() == static_cast<std::size_t>(ADBError::pathTooLong) + 1);

} // namespace

const char* errorName(ADBError error) {
    return names[static_cast<std::size_t>(error)];
}

} // namespace tessary
