#include "mtp/protocol/MTPError.h"

#include <array>

namespace tessary {

namespace {

constexpr std::array names{"refused", "timeout", "stalled",   "pipe",    "notThere",
                           "held",    "closed",  "badHeader", "tooLong", "malformed"};
static_assert(names.size() == static_cast<std::size_t>(MTPError::malformed) + 1);

} // namespace

const char* errorName(MTPError error) {
    return names[static_cast<std::size_t>(error)];
}

} // namespace tessary
