#include "phones/VirtualUsbPipe.h"

#include "support/MTPContainers.h"

#include <gtest/gtest.h>

#include <thread>

namespace tessary {
namespace {

using namespace std::chrono_literals;

constexpr std::size_t packet = 64;
constexpr UsbTimeouts soon{5s, 5s};
constexpr UsbTimeouts quiet{60ms, 60ms};

/// A transfer from the device, in chunks as it comes.
void put(VirtualUsbPipe& pipe, ByteView bytes, bool ends) {
    do {
        VirtualUsbChunk chunk = pipe.deviceChunk(4 * packet);
        const std::size_t part = std::min(chunk.capacity, bytes.size());
        std::ranges::copy(bytes.first(part), chunk.space().begin());
        chunk.end += part;
        bytes = bytes.subspan(part);
        chunk.endsTransfer = ends && bytes.empty();
        ASSERT_EQ(pipe.devicePut(std::move(chunk)), usb::success);
    } while (!bytes.empty());
}

struct ReadStep {
    std::size_t buffer;
    UsbCode code;
    std::size_t transferred;
};

struct ReadCase {
    const char* name;
    std::size_t sent;
    bool ends;
    std::vector<ReadStep> reads;
};

TEST(VirtualUsbPipe, readsFollowPacketBoundaries) {
    const ReadCase rows[] = {
        {"shortPacketEndsTheRead", 100, true, {{256, usb::success, 100}}},
        {"fullBufferEndsTheRead", 200, true, {{128, usb::success, 128}, {128, usb::success, 72}}},
        {"zeroPacketEndsTheRead", 128, true, {{256, usb::success, 128}}},
        {"zeroPacketIsLeftByAFullBuffer",
         256,
         true,
         {{256, usb::success, 256}, {64, usb::success, 0}}},
        {"emptyTransferIsAZeroPacket", 0, true, {{64, usb::success, 0}}},
        {"missingZeroPacketTimesOut", 128, false, {{256, usb::timeout, 128}}},
        {"chunksAreCutAndJoined",
         1000,
         true,
         {{64, usb::success, 64}, {320, usb::success, 320}, {1024, usb::success, 616}}},
        {"nothingTimesOut", 128, true, {{256, usb::success, 128}, {64, usb::timeout, 0}}},
    };
    for (const ReadCase& row : rows) {
        for (const bool streams : {false, true}) {
            SCOPED_TRACE(row.name);
            VirtualUsbPipe pipe(packet);
            const Bytes sent = patternOf(row.sent);
            put(pipe, sent, row.ends);
            Bytes received;
            for (const ReadStep& step : row.reads) {
                Bytes buffer(step.buffer);
                std::size_t transferred = 0;
                VirtualUsbChunk chunk;
                if (streams) {
                    EXPECT_EQ(pipe.hostTake(chunk, step.buffer, quiet), step.code);
                    transferred = chunk.size();
                    std::ranges::copy(chunk.bytes(), buffer.begin());
                } else {
                    EXPECT_EQ(pipe.hostRead(buffer, transferred, quiet), step.code);
                }
                EXPECT_EQ(transferred, step.transferred);
                received.insert(received.end(), buffer.begin(),
                                buffer.begin() + static_cast<std::ptrdiff_t>(transferred));
            }
            EXPECT_EQ(received, sent);
        }
    }
}

TEST(VirtualUsbPipe, packetBeyondTheBufferOverrunsAndIsLost) {
    VirtualUsbPipe pipe(packet);
    put(pipe, patternOf(72), true);
    Bytes buffer(66);
    std::size_t transferred = 0;
    EXPECT_EQ(pipe.hostRead(buffer, transferred, quiet), usb::overrun);
    EXPECT_EQ(transferred, 66U);
    EXPECT_EQ(pipe.hostRead(buffer, transferred, quiet), usb::timeout);
}

TEST(VirtualUsbPipe, fullPipeBlocksTheDeviceUntilTheHostReads) {
    VirtualUsbPipe pipe(packet, 4 * packet);
    std::atomic<int> sent = 0;
    std::jthread device([&] {
        for (int i = 0; i < 8; ++i, ++sent)
            put(pipe, patternOf(packet), false);
    });
    while (sent < 4)
        std::this_thread::sleep_for(1ms);
    std::this_thread::sleep_for(30ms); // in which a pipe without a bound would take the rest
    EXPECT_EQ(sent, 4);
    Bytes buffer(8 * packet);
    std::size_t transferred = 0;
    EXPECT_EQ(pipe.hostRead(buffer, transferred, soon), usb::success);
    EXPECT_EQ(transferred, buffer.size());
}

} // namespace
} // namespace tessary
