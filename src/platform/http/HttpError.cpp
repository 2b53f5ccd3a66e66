#include "platform/http/HttpError.h"

#include <array>

namespace tessary {

namespace {

constexpr std::array names{"timedOut", "tooLong", "unsafeAddress", "endlessRedirects",
                           "cutOff",   "failed",  "badStatus",     "badContent"};
static_assert(names.size() == static_cast<std::size_t>(HttpError::badContent) + 1);

} // namespace

const char* errorName(HttpError error) {
    return names[static_cast<std::size_t>(error)];
}

} // namespace tessary
