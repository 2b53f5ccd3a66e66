#pragma once

#include "simulator/faults/RequestLog.h"

#include <chrono>
#include <cstdint>
#include <vector>

namespace tessary {

/// One operation that was asked of a virtual phone.
struct VirtualRequest {
    std::uint16_t operation = 0; ///< raw code
    std::uint32_t transactionID = 0;
    std::vector<std::uint32_t> parameters;
    std::chrono::steady_clock::time_point time;
};

/// What was asked of a virtual phone.
using VirtualRequestLog = RequestLog<VirtualRequest, &VirtualRequest::operation>;

} // namespace tessary
