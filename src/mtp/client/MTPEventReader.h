#pragma once

#include "mtp/protocol/MTPTypes.h"
#include "platform/usb/USBBus.h"

#include <functional>
#include <thread>

namespace tessary {

/// Keeps a read pending on the interrupt pipe of a device for as long as it lives: some stop
/// answering once two events lie unread there. Ends by itself when the pipe is of no use.
class MTPEventReader {
public:
    /// `interface` is open and outlives the reader. `receiver` is called on the reader's thread.
    MTPEventReader(USBInterface& interface, std::uint8_t pipe,
                   std::function<void(const MTPEvent&)> receiver);
    /// Ends the read that is pending, and waits for the thread.
    ~MTPEventReader() = default;
    MTPEventReader(const MTPEventReader&) = delete;
    MTPEventReader& operator=(const MTPEventReader&) = delete;

private:
    void run(const std::stop_token& stop);

    USBInterface& interface_;
    const std::uint8_t pipe_;
    const std::function<void(const MTPEvent&)> receiver_;
    std::jthread thread_;
};

} // namespace tessary
