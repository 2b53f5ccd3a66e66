#pragma once

#include "simulator/iphone/VirtualMux.h"
#include "simulator/wire/MuxPacket.h"

namespace tessary {

/// One connection to the multiplexer, from its first packet on. Runs on the connection's thread.
class MuxSession {
public:
    MuxSession(VirtualMux& mux, VirtualMux::Connection& connection, PhoneStream& stream);

    /// Until one side ends it.
    void run();

private:
    /// Handles one request. False when the connection is to end.
    [[nodiscard]] bool handle(const QVariantMap& request, std::uint32_t tag);
    [[nodiscard]] bool connect(const QVariantMap& request, std::uint32_t tag);
    [[nodiscard]] bool savePairRecord(const QVariantMap& request, std::uint32_t tag);
    [[nodiscard]] bool answer(const QVariantMap& body, std::uint32_t tag);
    [[nodiscard]] bool answer(VirtualMux::Result result, std::uint32_t tag);

    VirtualMux& mux_;
    VirtualMux::Connection& connection_;
    PhoneStream& stream_;
};

} // namespace tessary
