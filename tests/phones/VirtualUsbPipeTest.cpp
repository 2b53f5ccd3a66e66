#include "phones/VirtualUsbPipe.h"

#include "phones/RawHost.h"

#include <thread>

namespace tessary {
namespace {

using namespace std::chrono_literals;

constexpr std::size_t packet = 64;
constexpr UsbTimeouts soon = RawHost::soon;
constexpr UsbTimeouts quiet = RawHost::quiet;

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

class HostReads : public testing::TestWithParam<ReadCase> {};
class StreamReads : public testing::TestWithParam<ReadCase> {};

TEST_P(HostReads, followPacketBoundaries) {
    VirtualUsbPipe pipe(packet);
    const Bytes sent = patternBytes(GetParam().sent);
    put(pipe, sent, GetParam().ends);
    Bytes received;
    for (const ReadStep& step : GetParam().reads) {
        Bytes buffer(step.buffer);
        std::size_t transferred = 0;
        EXPECT_EQ(pipe.hostRead(buffer, transferred, quiet), step.code);
        EXPECT_EQ(transferred, step.transferred);
        received.insert(received.end(), buffer.begin(),
                        buffer.begin() + static_cast<std::ptrdiff_t>(transferred));
    }
    const bool lost = received.size() < sent.size();
    if (!lost) {
        EXPECT_EQ(received, sent);
    }
}

TEST_P(StreamReads, followPacketBoundaries) {
    VirtualUsbPipe pipe(packet);
    const Bytes sent = patternBytes(GetParam().sent);
    put(pipe, sent, GetParam().ends);
    Bytes received;
    for (const ReadStep& step : GetParam().reads) {
        VirtualUsbChunk chunk;
        EXPECT_EQ(pipe.hostTake(chunk, step.buffer, quiet), step.code);
        EXPECT_EQ(chunk.size(), step.transferred);
        received.insert(received.end(), chunk.bytes().begin(), chunk.bytes().end());
    }
    EXPECT_EQ(received, sent);
}

const std::vector<ReadCase> wholePacketReads{
    {"shortPacketEndsTheRead", 100, true, {{256, usb::success, 100}}},
    {"fullBufferEndsTheRead", 200, true, {{128, usb::success, 128}, {128, usb::success, 72}}},
    {"zeroPacketEndsTheRead", 128, true, {{256, usb::success, 128}}},
    {"zeroPacketIsLeftByAFullBuffer", 128, true, {{128, usb::success, 128}, {64, usb::success, 0}}},
    {"zeroPacketIsLeftByAFullChunk", 256, true, {{256, usb::success, 256}, {64, usb::success, 0}}},
    {"emptyTransferIsAZeroPacket", 0, true, {{64, usb::success, 0}}},
    {"missingZeroPacketTimesOut", 128, false, {{256, usb::timeout, 128}}},
    {"chunksAreJoined", 1000, true, {{2048, usb::success, 1000}}},
    {"chunksAreCut",
     1000,
     true,
     {{64, usb::success, 64}, {320, usb::success, 320}, {1024, usb::success, 616}}},
    {"nothingTimesOut", 128, true, {{256, usb::success, 128}, {64, usb::timeout, 0}}},
};

const std::vector<ReadCase> oddReads{
    {"shortPacketThatFits", 12, true, {{12, usb::success, 12}}},
    {"packetBeyondTheBuffer", 200, true, {{12, usb::overrun, 12}, {256, usb::success, 136}}},
    {"shortPacketBeyondTheBuffer", 72, true, {{66, usb::overrun, 66}, {64, usb::timeout, 0}}},
    {"packetOfATransferThatEndsThere", 64, true, {{12, usb::overrun, 12}, {64, usb::success, 0}}},
};

const auto rowName = [](const auto& row) { return row.param.name; };
INSTANTIATE_TEST_SUITE_P(WholePackets, HostReads, testing::ValuesIn(wholePacketReads), rowName);
INSTANTIATE_TEST_SUITE_P(OddBuffers, HostReads, testing::ValuesIn(oddReads), rowName);
INSTANTIATE_TEST_SUITE_P(WholePackets, StreamReads, testing::ValuesIn(wholePacketReads), rowName);

TEST(VirtualUsbPipe, streamGetsTheDevicesMemoryWhenOneChunkAnswers) {
    VirtualUsbPipe pipe(packet);
    pipe.expectRead(1024);
    VirtualUsbChunk chunk = pipe.deviceChunk();
    ASSERT_EQ(chunk.capacity, 1024U);
    chunk.end = chunk.capacity;
    const std::byte* const memory = chunk.storage.get();
    ASSERT_EQ(pipe.devicePut(std::move(chunk)), usb::success);
    VirtualUsbChunk taken;
    ASSERT_EQ(pipe.hostTake(taken, 1024, soon), usb::success);
    EXPECT_EQ(taken.bytes().data(), memory);
}

TEST(VirtualUsbPipe, fullPipeBlocksTheDeviceUntilTheHostReads) {
    VirtualUsbPipe pipe(packet, 4 * packet);
    std::atomic<int> sent = 0;
    std::jthread device([&] {
        for (int i = 0; i < 8; ++i, ++sent)
            put(pipe, patternBytes(packet), false);
    });
    while (sent < 4)
        std::this_thread::sleep_for(1ms);
    std::this_thread::sleep_for(30ms); // in which a pipe without a bound would take the rest
    EXPECT_EQ(sent, 4);
    EXPECT_EQ(pipe.queuedBytes(), 4 * packet);
    Bytes buffer(8 * packet);
    std::size_t transferred = 0;
    EXPECT_EQ(pipe.hostRead(buffer, transferred, soon), usb::success);
    EXPECT_EQ(transferred, buffer.size());
}

TEST(VirtualUsbPipe, fullPipeTimesAWriteOutAndTellsWhatWasTaken) {
    VirtualUsbPipe pipe(packet, 4 * packet);
    std::size_t transferred = 0;
    EXPECT_EQ(pipe.hostWrite(patternBytes(4 * packet), transferred, quiet), usb::success);
    EXPECT_EQ(pipe.hostWrite(patternBytes(1), transferred, quiet), usb::timeout);
    EXPECT_EQ(transferred, 0U);
}

TEST(VirtualUsbPipe, quietTimeAndWholeTimeAreBothBounds) {
    VirtualUsbPipe pipe(packet);
    std::jthread device([&](const std::stop_token& stop) {
        while (!stop.stop_requested()) {
            put(pipe, patternBytes(packet), false);
            std::this_thread::sleep_for(5ms);
        }
    });
    Bytes buffer(1 << 20);
    std::size_t transferred = 0;
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(pipe.hostRead(buffer, transferred, {1000ms, 100ms}), usb::timeout);
    EXPECT_GE(std::chrono::steady_clock::now() - start, 100ms);
    EXPECT_GT(transferred, 0U);
    device.request_stop();
    device.join();
    EXPECT_EQ(pipe.hostRead(buffer, transferred, {30ms, 60s}), usb::timeout);
}

TEST(VirtualUsbPipe, stallComesAfterTheDataThatWasSentBefore) {
    VirtualUsbPipe pipe(packet);
    put(pipe, patternBytes(packet), false);
    pipe.stallBehindData();
    Bytes buffer(4 * packet);
    std::size_t transferred = 0;
    EXPECT_EQ(pipe.hostRead(buffer, transferred, soon), usb::pipeStalled);
    EXPECT_EQ(transferred, packet);
    EXPECT_EQ(pipe.hostRead(buffer, transferred, soon), usb::pipeStalled);
    EXPECT_TRUE(pipe.hostClearStall());
    EXPECT_FALSE(pipe.hostClearStall());
    put(pipe, patternBytes(5), true);
    EXPECT_EQ(pipe.hostRead(buffer, transferred, soon), usb::success);
    EXPECT_EQ(transferred, 5U);
}

TEST(VirtualUsbPipe, stalledPipeRefusesWritesAndDropsWhatItHeld) {
    VirtualUsbPipe pipe(packet);
    std::size_t transferred = 0;
    EXPECT_EQ(pipe.hostWrite(patternBytes(packet), transferred, soon), usb::success);
    pipe.stallNow();
    EXPECT_EQ(pipe.hostWrite(patternBytes(packet), transferred, soon), usb::pipeStalled);
    EXPECT_EQ(pipe.queuedBytes(), 0U);
    EXPECT_TRUE(pipe.hostClearStall());
    EXPECT_EQ(pipe.hostWrite(patternBytes(packet), transferred, soon), usb::success);
}

TEST(VirtualUsbPipe, closingWakesBothSides) {
    VirtualUsbPipe in(packet);
    VirtualUsbPipe out(packet, packet);
    Bytes buffer(packet);
    std::size_t transferred = 0;
    EXPECT_EQ(out.hostWrite(patternBytes(4 * packet), transferred, soon), usb::success);
    std::jthread puller([&] {
        std::this_thread::sleep_for(20ms);
        in.close();
        out.close();
    });
    std::jthread device([&] {
        VirtualUsbChunk chunk;
        EXPECT_EQ(in.deviceTake(chunk), usb::noDevice);
    });
    EXPECT_EQ(out.hostWrite(buffer, transferred, soon), usb::noDevice);
    EXPECT_EQ(in.hostRead(buffer, transferred, soon), usb::noDevice);
}

} // namespace
} // namespace tessary
