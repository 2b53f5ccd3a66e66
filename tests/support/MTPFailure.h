#pragma once

#include "mtp/protocol/MTPTransportError.h"

#include <optional>

namespace tessary {

/// What `call` throws.
template <typename Call>
std::optional<MTPTransportError> mtpFailureOf(Call&& call) {
    try {
        call();
    } catch (const MTPTransportError& error) {
        return error;
    }
    return std::nullopt;
}

} // namespace tessary
