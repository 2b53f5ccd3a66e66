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
inline constexpr const char* mtpReadTimedOut = "MTP Transport error: USB Read failed: 0x-1FFFFD2A";

} // namespace tessary
