#pragma once

#include "mtp/protocol/MTPTransportError.h"

#include <string>

namespace tessary {

/// The description of the MTPTransportError that `call` throws; "none" when it throws nothing.
template <typename Call>
std::string mtpFailureOf(Call&& call) {
    try {
        call();
    } catch (const MTPTransportError& error) {
        return error.description().toStdString();
    }
    return "none";
}

inline constexpr const char* mtpNotConnected = "MTP USB Transport is not connected.";

} // namespace tessary
