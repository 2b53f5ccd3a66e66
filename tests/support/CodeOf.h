#pragma once

#include "base/threads/CancellationError.h"
#include "base/values/Error.h"

#include <functional>
#include <string>

namespace tessary {

/// The code that `call` ends with, by its name in logs; "nothing" when it ends well, "cancelled"
/// after a CancellationError.
inline std::string codeOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const Error& error) {
        return error.code().name();
    } catch (const CancellationError&) {
        return "cancelled";
    }
    return "nothing";
}

} // namespace tessary
