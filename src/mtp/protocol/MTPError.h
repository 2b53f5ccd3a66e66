#pragma once

#include "base/values/Error.h"

namespace tessary {

/// What can go wrong between this computer and an MTP device, as the protocol sees it. Stands as
/// the cause below a PhoneError. Arguments stand behind each case.
enum class MTPError {
    refused,   ///< response code of the device
    timeout,   ///< the device was silent
    stalled,   ///< it halted a pipe
    pipe,      ///< platform code of a failed USB call
    notThere,  ///< no such device, or none with a usable interface
    held,      ///< another program has the interface
    closed,    ///< the connection is closed
    badHeader, ///< what came is no container
    tooLong,   ///< a dataset is longer than any real one
    malformed, ///< what was read, in English: it contradicts itself or ends too early
};

[[nodiscard]] constexpr ErrorLayer errorLayer(MTPError) {
    return ErrorLayer::mtp;
}
[[nodiscard]] const char* errorName(MTPError error);

} // namespace tessary
