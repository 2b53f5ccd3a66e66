#pragma once

#include "simulator/mtp/MTPResponderLink.h"
#include "simulator/mtp/VirtualBehaviour.h"

#include <vector>

namespace tessary {

/// A transaction under way; operations add the parameters of their answer.
struct MTPResponderTransaction {
    const MTPCommand& command;
    MTPResponderLink& link;
    VirtualBehaviour behaviour;
    std::vector<std::uint32_t> answer;

    /// The data phase of a command that brings a dataset; MTPRefusal for one that is too long.
    [[nodiscard]] Bytes receiveDataset();
};

/// Thrown by an operation that the phone never answers.
struct MTPNoAnswer {};

} // namespace tessary
