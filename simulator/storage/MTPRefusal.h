#pragma once

#include "mtp/protocol/MTPCodes.h"

#include <cstdint>

namespace tessary {

/// Thrown inside a virtual phone: the operation under way is answered with this status.
struct MTPRefusal {
    explicit MTPRefusal(MTPResponseCode response) : code(static_cast<std::uint16_t>(response)) {}
    explicit MTPRefusal(std::uint16_t raw) : code(raw) {}

    std::uint16_t code;
};

} // namespace tessary
