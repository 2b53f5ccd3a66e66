#pragma once

#include "base/values/Error.h"

namespace tessary {

/// Why a request brought no answer, or none that is of use. Arguments stand behind each case.
enum class HttpError {
    timedOut,
    tooLong,          ///< the answer is longer than was asked for
    unsafeAddress,    ///< see isSafeAddress()
    endlessRedirects, ///< the server leads from page to page
    cutOff,           ///< the answer ended early
    failed,           ///< reason, the library's own text
    badStatus,        ///< status
    badContent,       ///< it is not what this address should give
};

[[nodiscard]] constexpr ErrorLayer errorLayer(HttpError) {
    return ErrorLayer::http;
}
[[nodiscard]] const char* errorName(HttpError error);

} // namespace tessary
