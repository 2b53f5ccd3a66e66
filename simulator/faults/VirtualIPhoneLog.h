#pragma once

#include "simulator/faults/RequestLog.h"

#include <QString>

#include <chrono>
#include <cstdint>

namespace tessary {

/// One request to a virtual iPhone or to the multiplexer.
struct VirtualIPhoneRequest {
    /// Service and request: "mux.Connect", "lockdown.StartSession", "houseArrest.VendDocuments",
    /// "installationProxy.Browse", "afc.readDir" (see `AFCCodec::requestName`).
    QString request;
    QString detail;           ///< a path, a key, a service: what the request is about
    std::uint64_t number = 0; ///< a length or a port, where it has one
    std::chrono::steady_clock::time_point time;
};

/// What was asked of a virtual phone.
using VirtualIPhoneLog = RequestLog<VirtualIPhoneRequest, &VirtualIPhoneRequest::request>;

} // namespace tessary
