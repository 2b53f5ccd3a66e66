#pragma once

#include "simulator/mtp/MTPResponder.h"

namespace tessary {

/// One row of the table of operations that the phone knows.
struct MTPResponder::Operation {
    enum class Data { none, toHost, fromHost };

    MTPOperationCode code;
    void (MTPResponder::*run)(Transaction&);
    std::size_t leastParameters = 0;
    Data data = Data::none;
    bool needsSession = true;
};

/// Thrown by an operation that the phone never answers.
struct MTPNoAnswer {};

} // namespace tessary
