#pragma once

#include "ScriptedUSBBus.h"
#include "support/MTPContainers.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tessary {

/// A device whose every answer is the input. After each write it takes steps until one says to
/// stop; a step is a byte, whose low three bits are its kind, and the bytes that the kind needs:
///
///     0  stop
///     1  bytes as they are: u8 count, bytes
///     2  a container of the transaction under way: u8 type, u16 code, u8 count, payload
///     3  the same, with a u32 length that need not be true
///     4  an empty packet
///     5  a failed read: u8 index of its code
///     6  u16 times 16 zeros
///     7  the next write fails (bit 7: cancel request): u8 index of its code
///
/// Bit 6 lets what is next join the transfer of this step.
class FuzzedUSBDevice {
public:
    FuzzedUSBDevice(ScriptedUSBBus& bus, ByteView input) : bus_(bus), input_(input) {
        bus_.afterWrite = [this](ByteView written) { answer(written); };
    }
    FuzzedUSBDevice(const FuzzedUSBDevice&) = delete;
    FuzzedUSBDevice& operator=(const FuzzedUSBDevice&) = delete;

private:
    void answer(ByteView written) {
        if (written.size() >= MTPContainerHeader::size)
            transactionID_ = readLittleEndian<std::uint32_t>(written, 8);
        while (step()) {
        }
    }
    template <typename Value>
    Value number() {
        const Bytes bytes = take(sizeof(Value));
        return bytes.size() < sizeof(Value) ? Value{} : readLittleEndian<Value>(bytes, 0);
    }
    Bytes take(std::size_t count) {
        const ByteView taken = input_.first(std::min(count, input_.size()));
        input_ = input_.subspan(taken.size());
        return {taken.begin(), taken.end()};
    }
    USBCode code() {
        constexpr std::array codes{usb::pipeStalled, usb::timeout,  usb::generalError,
                                   usb::overrun,     usb::noDevice, usb::aborted};
        return codes[number<std::uint8_t>() % codes.size()];
    }
    void send(Bytes bytes, bool joins) {
        joined_.insert(joined_.end(), bytes.begin(), bytes.end());
        if (!joins)
            bus_.send(std::exchange(joined_, {}));
    }

    bool step() {
        if (input_.empty())
            return false;
        const auto kind = number<std::uint8_t>();
        const bool joins = (kind & 0x40) != 0;
        switch (kind & 7) {
        case 1:
            send(take(number<std::uint8_t>()), joins);
            return true;
        case 2:
        case 3: {
            const auto type = number<std::uint8_t>();
            const auto containerCode = number<std::uint16_t>();
            const bool lies = (kind & 7) == 3;
            const auto claimed = lies ? number<std::uint32_t>() : 0;
            const Bytes payload = take(number<std::uint8_t>());
            const auto length = static_cast<std::uint32_t>(12 + payload.size());
            send(containerOf(lies ? claimed : length, type, containerCode, transactionID_, payload),
                 joins);
            return true;
        }
        case 4:
            bus_.sendEmptyPacket();
            return true;
        case 5:
            bus_.fail(code());
            return true;
        case 6:
            bus_.incoming.push_back({{}, std::uint64_t{16} * number<std::uint16_t>(), {}});
            return true;
        case 7:
            ((kind & 0x80) != 0 ? bus_.cancelCodes : bus_.writeCodes).push_back(code());
            return true;
        default:
            return false;
        }
    }

    ScriptedUSBBus& bus_;
    ByteView input_;
    Bytes joined_;
    std::uint32_t transactionID_ = 0;
};

} // namespace tessary
