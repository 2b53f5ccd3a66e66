#include "platform/net/NetworkError.h"

#include <array>

namespace tessary {

const char* errorName(NetworkError error) {
    constexpr std::array names{"badAddress", "refused", "unreachable", "timedOut", "brokenOff"};
    static_assert(names.size() == static_cast<std::size_t>(NetworkError::brokenOff) + 1);
    return names[static_cast<std::size_t>(error)];
}

} // namespace tessary
