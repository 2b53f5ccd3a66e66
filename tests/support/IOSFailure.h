#pragma once

#include "core/TessaryError.h"

#include <QString>

#include <functional>

namespace tessary {

/// The text of the TessaryError that `call` ends with; "nothing was thrown" when there is none.
[[nodiscard]] inline QString failureOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const TessaryError& error) {
        return error.description();
    }
    return QStringLiteral("nothing was thrown");
}

} // namespace tessary
