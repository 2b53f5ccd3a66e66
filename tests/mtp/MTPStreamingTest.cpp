#include "core/CancellationError.h"
#include "mtp/IOKitMTPTransport.h"
#include "support/MTPContainers.h"
#include "support/MTPFailure.h"
#include "support/ScriptedUsbBus.h"

#include <gmock/gmock.h>

namespace tessary {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::Pair;

constexpr std::uint64_t gibibyte = std::uint64_t{1} << 30;

class MTPStreamingTest : public ::testing::Test {
protected:
    MTPStreamingTest() {
        transport_.open();
        bus_.log.clear();
    }

    /// The response that follows a data container.
    void expectResponse() {
        EXPECT_EQ(transport_.receivePacket().header.code, 0x2001);
    }

    /// Sends `size` zeros in one data container.
    void upload(std::uint32_t length, std::uint64_t size, const MTPStreamOptions& options = {}) {
        const MTPDataSource zeros = [](std::span<std::byte> buffer) { return buffer.size(); };
        transport_.sendContainer({length, MTPContainerType::data, 0x100D, 7}, size, zeros, options);
    }

    ScriptedUsbBus bus_;
    IOKitMTPTransport transport_{bus_, 0x18D1, 0x4EE1};
    Bytes got_;
    const MTPDataSink sink_ = [this](ByteView bytes) {
        got_.insert(got_.end(), bytes.begin(), bytes.end());
    };
};

TEST_F(MTPStreamingTest, otherContainersAreKeptFromTheSink) {
    bus_.send(responseOf(0x2009, 7, {1, 2}));
    const MTPPacket packet = transport_.receiveContainer(sink_, {});
    EXPECT_EQ(packet.header.code, 0x2009);
    EXPECT_EQ(packet.payload.size(), 8U);
    EXPECT_TRUE(got_.empty());
}

struct UnknownLength {
    const char* name;
    std::uint32_t length;
    std::optional<std::uint64_t> expected;
    std::uint64_t payload;
    bool terminated; ///< by a zero-length packet
};

class UnknownLengthTest : public MTPStreamingTest,
                          public ::testing::WithParamInterface<UnknownLength> {};

TEST_P(UnknownLengthTest, objectBeyond32BitsArrivesWhole) {
    const UnknownLength& row = GetParam();
    bus_.incoming.push_back({containerOf(row.length, 2, 0x1009, 7, {}), row.payload, {}});
    if (row.terminated)
        bus_.sendEmptyPacket();
    bus_.send(responseOf(0x2001, 7));
    std::uint64_t received = 0;
    qint64 reported = 0;
    MTPStreamOptions options;
    options.expectedSize = row.expected;
    options.progress = [&](qint64 done, qint64) { reported = done; };
    const MTPDataSink counter = [&](ByteView bytes) { received += bytes.size(); };
    (void)transport_.receiveContainer(counter, options);
    EXPECT_EQ(received, row.payload);
    EXPECT_EQ(reported, static_cast<qint64>(row.payload));
    expectResponse();
    EXPECT_LE(bus_.readBufferLimit, 1U << 20);
}

constexpr std::uint32_t unknown = 0xFFFFFFFF;
constexpr std::uint64_t wholePackets = 5 * gibibyte - 12;

INSTANTIATE_TEST_SUITE_P(
    Sizes, UnknownLengthTest,
    ::testing::Values(UnknownLength{"expected", unknown, 5 * gibibyte, 5 * gibibyte, false},
                      UnknownLength{"expectedWholePackets", unknown, wholePackets, wholePackets,
                                    false},
                      UnknownLength{"untilShortPacket", unknown, std::nullopt, 5 * gibibyte, false},
                      UnknownLength{"untilEmptyPacket", unknown, std::nullopt, wholePackets, true},
                      UnknownLength{"cutTo32Bits", static_cast<std::uint32_t>(5 * gibibyte + 12),
                                    5 * gibibyte, 5 * gibibyte, false},
                      UnknownLength{"truthOfTheHeader", 1012, 5 * gibibyte, 1000, false}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(MTPStreamingTest, headerAndFirstBytesGoOutTogether) {
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
    EXPECT_EQ(sent, dataOf(0x100D, 7, payload));
    EXPECT_THAT(progress,
                ElementsAre(Pair(262132, 600000), Pair(524276, 600000), Pair(600000, 600000)));
}

TEST_F(MTPStreamingTest, onlyUnknownLengthIsClosedByAnEmptyPacket) {
    struct Row {
        const char* name;
        std::uint32_t length;
        std::uint64_t size;
        bool closed;
    };
    for (const Row& row : {Row{"known, whole packets", 524288, 524276, false},
                           {"unknown, whole packets", unknown, 5 * gibibyte - 12, true},
                           {"unknown, one packet", unknown, 500, true},
                           {"unknown, short packet", unknown, 5 * gibibyte, false}}) {
        bus_.log.clear();
        bus_.writtenSize = 0;
        upload(row.length, row.size);
        EXPECT_EQ(bus_.writtenSize, row.size + 12) << row.name;
        EXPECT_EQ(bus_.logged("write 0"), row.closed ? 1U : 0U) << row.name;
        EXPECT_EQ(bus_.log.back() == "write 0", row.closed) << row.name;
    }
}

TEST_F(MTPStreamingTest, sourceThatEndsEarlyBreaksTheTransferOff) {
    std::size_t rest = 300'000;
    const MTPDataSource source = [&](std::span<std::byte> buffer) {
        const std::size_t count = std::min(rest, buffer.size());
        rest -= count;
        return count;
    };
    EXPECT_EQ(mtpFailureOf([&] {
                  transport_.sendContainer({600'012, MTPContainerType::data, 0x100D, 7}, 600'000,
                                           source, {});
              }),
              "MTP Transport error: the data ended after 300000 of 600000 bytes");
    EXPECT_THAT(bus_.log, ElementsAre("write 262144")); // stops at a packet boundary
}

TEST_F(MTPStreamingTest, exceptionsOfTheCallerComeThrough) {
    struct FullDisk {};
    bus_.send(dataOf(0x1009, 7, Bytes(600'000)));
    EXPECT_THROW((void)transport_.receiveContainer([](ByteView) { throw FullDisk(); }, {}),
                 FullDisk);
    transport_.recover(7, MTPDataPhase::toHost);
    const MTPDataSource unreadable = [](std::span<std::byte>) -> std::size_t { throw FullDisk(); };
    EXPECT_THROW(
        transport_.sendContainer({112, MTPContainerType::data, 0x100D, 8}, 100, unreadable, {}),
        FullDisk);
    transport_.recover(8, MTPDataPhase::toDevice);
    bus_.send(responseOf(0x2001, 9));
    expectResponse();
}

TEST_F(MTPStreamingTest, stopTokenEndsBetweenTwoPieces) {
    std::stop_source stop;
    MTPStreamOptions options;
    options.stop = stop.get_token();
    options.progress = [&](qint64 done, qint64) {
        if (done >= 262'144)
            stop.request_stop();
    };
    bus_.send(dataOf(0x1009, 7, Bytes(2'000'000)));
    EXPECT_THROW((void)transport_.receiveContainer(sink_, options), CancellationError);
    EXPECT_GE(got_.size(), 262'144U);
    EXPECT_LE(got_.size(), 3 * 262'144U);
    transport_.recover(7, MTPDataPhase::toHost);

    bus_.log.clear();
    stop = std::stop_source();
    options.stop = stop.get_token();
    EXPECT_THROW(upload(2'000'012, 2'000'000, options), CancellationError);
    EXPECT_THAT(bus_.log, ElementsAre("write 262144", "write 262144"));
}

} // namespace
} // namespace tessary
