#pragma once

#include "mtp/protocol/MTPError.h"

#include <optional>

namespace tessary {

/// What `call` throws.
template <typename Call>
std::optional<MTPFailure> mtpFailureOf(Call&& call) {
    try {
        call();
    } catch (const MTPFailure& error) {
        return error;
    }
    return std::nullopt;
}

} // namespace tessary
