#pragma once

#include <cstdint>

namespace tessary {

/// Thrown by the inner parts of the virtual iPhone's AFC; answered with the status.
struct AFCRefusal {
    std::uint64_t status = 0;
};

} // namespace tessary
