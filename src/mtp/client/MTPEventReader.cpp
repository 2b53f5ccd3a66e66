#include "mtp/client/MTPEventReader.h"

#include "base/threads/ThreadName.h"
#include "mtp/protocol/MTPPacketCodec.h"

#include <array>

namespace tessary {

MTPEventReader::MTPEventReader(USBInterface& interface, std::uint8_t pipe,
                               std::function<void(const MTPEvent&)> receiver)
    : interface_(interface),
      pipe_(pipe),
      receiver_(std::move(receiver)),
      thread_([this](const std::stop_token& stop) { run(stop); }) {}

void MTPEventReader::run(const std::stop_token& stop) {
    using namespace std::chrono_literals;
    constexpr std::size_t longestEvent = 64; // a header and three parameters, in one packet
    constexpr int mostFailures = 3;
    nameCurrentThread("tessary-events");
    int failures = 0;
    while (!stop.stop_requested() && failures < mostFailures) {
        std::array<std::byte, longestEvent> packet{};
        std::size_t transferred = 0;
        const USBCode code = interface_.readPipeTO(pipe_, packet, transferred, {10min, &stop});
        if (code == usb::success || code == usb::timeout) {
            failures = 0;
            if (const auto event =
                    MTPPacketCodec::decodeEvent(std::span(packet).first(transferred)))
                receiver_(*event);
            continue;
        }
        ++failures;
        if (code == usb::noDevice || code == usb::notOpen || code == usb::badArgument)
            return;
        if (code == usb::pipeStalled)
            interface_.clearPipeStallBothEnds(pipe_);
    }
}

} // namespace tessary
