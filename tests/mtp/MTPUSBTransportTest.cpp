#include "mtp/client/MTPUSBTransport.h"

#include "support/MTPContainers.h"
#include "support/MTPFailure.h"
#include "support/ScriptedUSBBus.h"

#include <gmock/gmock.h>

namespace tessary {
namespace {

using ::testing::ElementsAre;
using ::testing::Pair;

class MTPUSBTransportTest : public ::testing::Test {
protected:
    MTPUSBTransportTest() {
        bus_.attached[0].interfaces.insert(bus_.attached[0].interfaces.begin(), {8, 6, {}});
        transport_.open();
        bus_.log.clear();
    }

    /// A response comes through, so the stream is in step.
    void expectInStep() {
        bus_.send(responseOf(0x2001, 99));
        const MTPPacket packet = transport_.receivePacket();
        EXPECT_EQ(packet.header, (MTPContainerHeader{12, MTPContainerType::response, 0x2001, 99}));
    }

    ScriptedUSBBus bus_;
    MTPUSBTransport transport_{bus_, 0x18D1, 0x4EE1};
};

constexpr std::uint64_t gibibyte = std::uint64_t{1} << 30;
constexpr std::uint32_t unknown = 0xFFFFFFFF;

TEST_F(MTPUSBTransportTest, promisedBytesThatNeverComeCostNoMemory) {
    for (const std::uint32_t length : {13U, 513U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
        bus_.readBufferLimit = 0;
        bus_.send(containerOf(length, 2, 0x1009, 5, {}));
        // What is kept whole has a limit of its own.
        EXPECT_EQ(mtpFailureOf([&] { (void)transport_.receivePacket(); }),
                  length > 1000U ? "MTP USB buffer overflow." : mtpReadTimedOut);
        transport_.recover(5, MTPDataPhase::toHost);
        bus_.send(containerOf(length, 2, 0x1009, 5, {}));
        EXPECT_EQ(mtpFailureOf([&] { (void)transport_.receiveContainer([](ByteView) {}, {}); }),
                  mtpReadTimedOut);
        EXPECT_LE(bus_.readBufferLimit, 1U << 20) << length;
        transport_.recover(5, MTPDataPhase::toHost);
        expectInStep();
    }
}

TEST_F(MTPUSBTransportTest, objectsBeyond32BitsArriveWhole) {
    constexpr std::uint64_t whole = 5 * gibibyte - 12; // packets
    constexpr auto low = static_cast<std::uint32_t>(5 * gibibyte + 12);
    const struct {
        const char* name;
        std::uint32_t length;
        std::optional<std::uint64_t> expected;
        std::uint64_t payload;
        bool terminated; ///< by a zero-length packet
    } rows[] = {
        {"expected", unknown, 5 * gibibyte, 5 * gibibyte, false},
        {"expected whole packets", unknown, whole, whole, false},
        {"until a short packet", unknown, std::nullopt, 5 * gibibyte, false},
        {"until an empty packet", unknown, std::nullopt, whole, true},
        {"length cut to 32 bits", low, 5 * gibibyte, 5 * gibibyte, false},
        {"length cut, and nobody knows", low, std::nullopt, 5 * gibibyte, false},
        {"the header tells the truth", 1012, 5 * gibibyte, 1000, false},
    };
    for (const auto& row : rows) {
        bus_.incoming.push_back({containerOf(row.length, 2, 0x1009, 7, {}), row.payload, {}});
        if (row.terminated)
            bus_.sendEmptyPacket();
        std::uint64_t received = 0;
        qint64 reported = 0;
        MTPStreamOptions options;
        options.expectedSize = row.expected;
        options.progress = [&](qint64 done, qint64) { reported = done; };
        (void)transport_.receiveContainer([&](ByteView bytes) { received += bytes.size(); },
                                          options);
        EXPECT_EQ(received, row.payload) << row.name;
        EXPECT_EQ(reported, static_cast<qint64>(row.payload)) << row.name;
        expectInStep();
        EXPECT_LE(bus_.readBufferLimit, 1U << 20) << row.name;
    }
}

TEST_F(MTPUSBTransportTest, headerAndFirstBytesGoOutTogether) {
    Bytes sent;
    bus_.afterWrite = [&](ByteView chunk) { sent.insert(sent.end(), chunk.begin(), chunk.end()); };
    const Bytes payload = patternOf(600'000);
    std::size_t at = 0;
    // A source may give less than it is asked for.
    const MTPDataSource source = [&](std::span<std::byte> buffer) {
        const std::size_t count = std::min({buffer.size(), payload.size() - at, std::size_t{999}});
        std::copy_n(payload.begin() + static_cast<std::ptrdiff_t>(at), count, buffer.begin());
        at += count;
        return count;
    };
    std::vector<std::pair<qint64, qint64>> progress;
    MTPStreamOptions options;
    options.progress = [&](qint64 done, qint64 total) { progress.emplace_back(done, total); };
    transport_.sendContainer({600'012, MTPContainerType::data, 0x100D, 7}, payload.size(), source,
                             options);
    EXPECT_THAT(bus_.log, ElementsAre("write 262144", "write 262144", "write 75724"));
    EXPECT_EQ(bus_.mostWrites, 3U) << "the pipe never idles while the source is read";
    EXPECT_EQ(sent, dataOf(0x100D, 7, payload));
    EXPECT_THAT(progress,
                ElementsAre(Pair(262132, 600000), Pair(524276, 600000), Pair(600000, 600000)));
}

} // namespace
} // namespace tessary
