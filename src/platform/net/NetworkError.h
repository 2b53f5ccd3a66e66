#pragma once

#include "base/values/Error.h"

namespace tessary {

/// What can go wrong with a stream to another program or machine. Arguments stand behind each case;
/// a reason is the system's own text.
enum class NetworkError {
    badAddress,  ///< address
    refused,     ///< address, reason: nothing listens there
    unreachable, ///< address, reason
    timedOut,    ///< nothing moved for too long
    brokenOff,   ///< reason: the other side, or what lies between, has ended it
};

[[nodiscard]] constexpr ErrorLayer errorLayer(NetworkError) {
    return ErrorLayer::network;
}
[[nodiscard]] const char* errorName(NetworkError error);

} // namespace tessary
