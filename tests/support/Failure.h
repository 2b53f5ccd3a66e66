#pragma once

#include "base/values/TessaryError.h"

#include <QString>

#include <functional>

namespace tessary {

inline constexpr const char* notThrown = "nothing was thrown";

/// The text of the TessaryError that `call` ends with; `notThrown` when there is none.
[[nodiscard]] inline QString failureOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const TessaryError& error) {
        return error.description();
    }
    return QString::fromLatin1(notThrown);
}

} // namespace tessary
