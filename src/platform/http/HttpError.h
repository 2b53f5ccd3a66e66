#pragma once

#include "base/values/Error.h"

#include <iterator>

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
[[nodiscard]] constexpr const char* errorName(HttpError error) {
    constexpr const char* names[] = {"timedOut", "tooLong", "unsafeAddress", "endlessRedirects",
                                     "cutOff",   "failed",  "badStatus",     "badContent"};
    static_assert(std::size(names) == static_cast<std::size_t>(HttpError::badContent) + 1);
    return names[static_cast<std::size_t>(error)];
}

} // namespace tessary
