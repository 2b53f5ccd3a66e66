#include "mtp/client/MTPRecovery.h"

#include "base/values/Bytes.h"
#include "base/values/LittleEndian.h"
#include "mtp/protocol/MTPCodes.h"

#include <array>
#include <thread>

namespace tessary {

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr USBControlRequest cancelRequest{0x21, 0x64, 0, 0};
constexpr USBControlRequest deviceStatusRequest{0xA1, 0x67, 0, 0};
constexpr std::size_t statusHeaderSize = 4;
constexpr auto controlTimeout = 1000ms;
constexpr auto statusPollInterval = 20ms;
/// The pipe counts as empty when nothing has come for this long.
constexpr auto quietTime = 300ms;
constexpr std::size_t drainReadSize = 0x40000;

/// Tells whether there is no more time.
auto endOf(const MTPWaits& waits) {
    return [deadline = Clock::now() + waits.patience, &stop = waits.stop] {
        return Clock::now() >= deadline || stop.stop_requested();
    };
}

/// Waits while the device says that it is busy, and clears the halts that it tells of.
void awaitCancelled(const MTPInterfaceConnection& connection, const MTPWaits& waits) {
    USBInterface& interface = *connection.interface;
    USBControlRequest request = deviceStatusRequest;
    request.index = interface.number();
    const auto isOver = endOf(waits);
    while (!isOver()) {
        std::array<std::byte, 32> status{};
        std::size_t transferred = 0;
        const USBCode code = interface.controlRequest(request, status, transferred, controlTimeout);
        // Some devices answer with nothing at all.
        if (code != usb::success || transferred < statusHeaderSize)
            return;
        if (readLittleEndian<std::uint16_t>(status, 2) !=
            static_cast<std::uint16_t>(MTPResponseCode::deviceBusy)) {
            if (transferred > statusHeaderSize) {
                interface.clearPipeStallBothEnds(connection.inPipe);
                interface.clearPipeStallBothEnds(connection.outPipe);
            }
            return;
        }
        std::this_thread::sleep_for(statusPollInterval);
    }
}

} // namespace

bool cancelMTPTransaction(const MTPInterfaceConnection& connection, std::uint32_t transactionID,
                          const MTPWaits& waits) {
    USBInterface& interface = *connection.interface;
    Bytes message;
    appendLittleEndian(message, static_cast<std::uint16_t>(MTPEventCode::cancelTransaction));
    appendLittleEndian(message, transactionID);
    std::size_t transferred = 0;
    USBControlRequest request = cancelRequest;
    request.index = interface.number();
    if (interface.controlRequest(request, message, transferred, controlTimeout) != usb::success)
        return false;
    awaitCancelled(connection, waits);
    return true;
}

MTPPipeState drainMTPPipe(const MTPInterfaceConnection& connection, const MTPWaits& waits) {
    USBInterface& interface = *connection.interface;
    const std::size_t packetSize = connection.maxPacketSize;
    Bytes buffer((drainReadSize + packetSize - 1) / packetSize * packetSize);
    MTPPipeState state = MTPPipeState::quiet;
    bool stalledBefore = false;
    const auto isOver = endOf(waits);
    while (!isOver()) {
        std::size_t transferred = 0;
        const USBCode code =
            interface.readPipeTO(connection.inPipe, buffer, transferred, {quietTime});
        if (transferred > 0)
            state = MTPPipeState::drained;
        const bool moreMayCome = code == usb::success ||
                                 (code == usb::timeout && transferred > 0) ||
                                 (code == usb::pipeStalled && !stalledBefore);
        if (code == usb::pipeStalled) {
            interface.clearPipeStallBothEnds(connection.inPipe);
            stalledBefore = true;
        }
        if (!moreMayCome)
            return state;
    }
    return MTPPipeState::busy;
}

} // namespace tessary
